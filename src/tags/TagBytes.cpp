#include "tags/TagBytes.h"

#include <algorithm>

namespace norvo {
namespace {

// An ordinary tag without a picture lies within it.
constexpr std::size_t kWindow = 4096;

}  // namespace

std::string_view TagBytes::At(std::uint64_t offset, std::size_t length) {
  const bool inside = offset >= start_ && offset + length <= start_ + window_.size();
  if (!inside) {
    window_.resize(std::max(length, kWindow));
    const std::size_t got = file_.ReadAt(offset, window_);
    std::fill(window_.begin() + static_cast<std::ptrdiff_t>(got), window_.end(), '\0');
    start_ = offset;
  }
  return std::string_view(window_).substr(static_cast<std::size_t>(offset - start_), length);
}

}  // namespace norvo
