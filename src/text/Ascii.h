#pragma once

#include <string_view>
#include <type_traits>

#include "text/Text.h"

namespace norvo {

/// True when every unit is below 128. Most texts are, and such a text needs no table on its way in
/// or out. Looks at all units without a branch, which is the quickest.
template <class Unit>
bool IsAsciiText(std::basic_string_view<Unit> text) noexcept {
  using Bits =
      std::make_unsigned_t<Unit>;  // as wide as the units, so that they need not be widened
  Bits all = 0;
  for (const Unit unit : text) all = static_cast<Bits>(all | static_cast<Bits>(unit));
  return all < 0x80;
}
inline bool IsAscii(std::string_view bytes) noexcept {
  return IsAsciiText(bytes);
}
inline bool IsAscii(StringView text) noexcept {
  return IsAsciiText(text);
}

/// @{
/// Copies ASCII characters to a place that has room for them.
inline void CopyAscii(std::string_view from, char16_t* __restrict to) noexcept {
  const char* const bytes = from.data();
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = static_cast<unsigned char>(bytes[i]);
}
inline void CopyAscii(StringView from, char* __restrict to) noexcept {
  const char16_t* const units = from.data();
  for (std::size_t i = 0; i < from.size(); ++i) to[i] = static_cast<char>(units[i]);
}
/// @}

}  // namespace norvo
