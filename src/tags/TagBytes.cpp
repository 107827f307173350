#include "tags/TagBytes.h"

#include <algorithm>

namespace norvo {

void TagBytes::Fill(std::uint64_t offset, std::span<char> bytes) {
  const std::size_t got = file_.ReadAt(offset, bytes);
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(got), bytes.end(), '\0');
}

std::string_view TagBytes::At(std::uint64_t offset, std::size_t length) {
  if (length > kWindow) {
    large_.resize(length);
    Fill(offset, large_);
    return large_;
  }
  const bool inside = offset >= start_ && offset + length <= start_ + length_;
  if (!inside) {
    Fill(offset, window_);
    start_ = offset;
    length_ = kWindow;
  }
  return {window_.data() + (offset - start_), length};
}

}  // namespace norvo
