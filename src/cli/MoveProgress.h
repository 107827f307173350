#pragma once

#include "cli/Progress.h"
#include "move/WorkObserver.h"

namespace norvo::cli {

/// Shows how far a move is.
void ShowProgress(const WorkProgress& work, Progress& bar);

}  // namespace norvo::cli
