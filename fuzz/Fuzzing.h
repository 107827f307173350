#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "text/Text.h"

namespace norvo {

inline std::string_view AsBytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program where what is promised does not hold.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// True for a part of the text, which nobody has copied.
inline bool IsViewOf(StringView part, StringView text) {
  return part.empty() ||
         (part.data() >= text.data() && part.data() + part.size() <= text.data() + text.size());
}

/// Takes the piece up to the first zero byte off `rest`; all of it where there is none.
inline std::string_view TakePiece(std::string_view& rest) {
  const std::size_t end = rest.find('\0');
  const std::string_view piece = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return piece;
}

}  // namespace norvo
