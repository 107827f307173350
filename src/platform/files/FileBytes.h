#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/files/SystemCalls.h"

namespace norvo {

/// The whole file. What need not end, or might be waited for, is not read (NotAFile), nor are more
/// than `most` bytes (TooLong).
FileResult<std::string> ReadWhole(const SystemFile& file, std::size_t most);

/// True when two files hold the same `size` bytes. A file that ends before is another one.
FileResult<bool> SameBytes(const SystemFile& left, const SystemFile& right, std::uint64_t size,
                           const ByteSink& sink);

}  // namespace norvo
