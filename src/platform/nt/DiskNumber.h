#pragma once

#include <windows.h>

#include <cstdint>

namespace norvo {

/// The number of the disk that holds an open file; 0 for one that has none.
std::uint64_t DiskNumberOf(HANDLE file);

}  // namespace norvo
