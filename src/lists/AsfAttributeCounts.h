#pragma once

#include <cstdint>
#include <span>

namespace norvo {

/// Looks at the blocks that the tag library reads of a file. The library makes an object for each
/// attribute that a list of an ASF file claims, though the file has long ended: 65535 take it 60 MB
/// and tens of milliseconds. So no list claims more than the rest of the file has room for.
class AsfAttributeCounts {
 public:
  /// Lessens the count when `block` is that of a list of attributes; `left` is how many bytes of
  /// the file follow it.
  void Mend(std::span<char> block, std::uint64_t left);

 private:
  // A list starts with its identifier, its size and its count, each read as a block.
  enum class Next { Identifier, Size, Count };

  Next next_ = Next::Identifier;
};

}  // namespace norvo
