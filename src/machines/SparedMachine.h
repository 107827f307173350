#pragma once

#include <memory>
#include <span>

#include "services/Platform.h"

namespace norvo {

/// The machine as it is, for a move that only reads it: what is written to it is kept in memory.
/// Folders, by their full paths on the machine, are hidden: what searches the drives does not come
/// to them, such as to the move's own target. The root of a drive may be hidden as well. Paths lead
/// there all the same.
std::shared_ptr<Platform> SparedMachine(std::shared_ptr<Platform> machine,
                                        std::span<const String> hidden);

}  // namespace norvo
