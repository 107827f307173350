#pragma once

#include <cstdint>

namespace norvo {

/// What the system's codes tell of a disk as such, not of a file on it.

/// It has failed.
bool TellsOfFailedDisk(std::uint32_t code);
/// It is not there: nothing is inserted, or it is a share that cannot be reached.
bool TellsOfAbsentDisk(std::uint32_t code);

}  // namespace norvo
