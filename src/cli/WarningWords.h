#pragma once

#include <string>

#include "move/WorkObserver.h"

namespace norvo::cli {

/// What was not done or found wrong, in a line for people. `library` goes in front of what the
/// library itself tells: "Old machine: ".
std::string TextOf(const WorkWarning& warning, const char* library = "Warning: ");

}  // namespace norvo::cli
