#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvo {

/// Bytes in less room: what a machine that is only planned would write is mostly playlists, whose
/// lines are much like those before them, so that some seventh is left of it.
class PackedBytes {
 public:
  PackedBytes() = default;
  explicit PackedBytes(std::string_view bytes);

  /// As they were.
  std::string Bytes() const;
  /// Of them as they were.
  std::size_t Size() const { return size_; }

 private:
  std::string packed_;
  std::size_t size_ = 0;
};

}  // namespace norvo
