#pragma once

#include "text/Text.h"

namespace norvo {

/// True for a line that tells of work which was not done: a folder that cannot be listed, a file
/// that cannot be looked at, a media list that cannot be written.
bool IsWarning(StringView logLine);

}  // namespace norvo
