#include "tags/TagBytes.h"

#include <algorithm>

namespace norvo {

void TagBytes::Fill(std::uint64_t offset, std::span<char> bytes) {
  const std::size_t got = file_.ReadAt(offset, bytes);
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(got), bytes.end(), '\0');
}

/// What lies not in the window.
std::string_view TagBytes::AtAnew(std::uint64_t offset, std::size_t length) {
  if (length > kWindow) {
    large_.resize(length);
    Fill(offset, large_);
    return large_;
  }
  Fill(offset, window_);
  start_ = offset;
  length_ = kWindow;
  return {window_.data(), length};
}

}  // namespace norvo
