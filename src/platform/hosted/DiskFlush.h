#pragma once

#include <span>
#include <vector>

namespace norvo {

/// Waits until what was written to open files is on the disk. For each descriptor 0 or the `errno`
/// of what failed. Many files of one disk are flushed at once, along with all else that waits to be
/// written to it. May run on a thread of its own.
std::vector<int> FlushToDisk(std::span<const int> descriptors);

}  // namespace norvo
