#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "services/FileSystem.h"

namespace norvo {

/// A file's bytes at any place, through one window: neighbouring requests cost one read. Bytes
/// past the end of the file are zeros.
class TagBytes {
 public:
  explicit TagBytes(BinaryFile& file) : file_(file) {}

  /// `length` bytes at a 0-based offset. The view holds until the next call.
  std::string_view At(std::uint64_t offset, std::size_t length) {
    const bool inside = offset >= start_ && offset + length <= start_ + length_;
    return inside ? std::string_view(window_.data() + (offset - start_), length)
                  : AtAnew(offset, length);
  }
  std::uint64_t Size() { return file_.Size(); }

 private:
  // An ordinary tag without a picture lies within it.
  static constexpr std::size_t kWindow = 4096;

  std::string_view AtAnew(std::uint64_t offset, std::size_t length);
  void Fill(std::uint64_t offset, std::span<char> bytes);

  BinaryFile& file_;
  std::array<char, kWindow> window_;
  std::uint64_t start_ = 0;  // of the window in the file
  std::size_t length_ = 0;   // of what the window holds
  std::string large_;        // a request that is larger than the window
};

}  // namespace norvo
