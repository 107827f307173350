#pragma once

#include <memory>

#include "services/Platform.h"

namespace norvo {

/// The machine as it is, for a move that only reads it: what is written to it is kept in memory. A
/// folder, by its full path on the machine, is hidden, unless the path is empty: what searches the
/// drives does not come to it, such as to the move's own target. The root of a drive may be hidden
/// as well. Paths lead there all the same.
std::shared_ptr<Platform> SparedMachine(std::shared_ptr<Platform> machine, StringView hidden);

}  // namespace norvo
