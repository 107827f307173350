#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "text/Text.h"

namespace norvo {

/// @{
/// True when every unit is below 128. Most texts are, and such a text needs no table on its way in
/// or out.
inline bool IsAscii(std::string_view bytes) noexcept {
  constexpr std::uint64_t kBeyond = 0x8080808080808080u;
  return !AnyWord(bytes, '\0', [](std::uint64_t word) { return word & kBeyond; });
}
inline bool IsAscii(StringView text) noexcept {
  constexpr std::uint64_t kBeyond = InEachLane(static_cast<char16_t>(0xFF80));
  return !AnyWord(text, u'\0', [](std::uint64_t word) { return word & kBeyond; });
}
/// @}

namespace detail {

/// By pieces that stand on the stack: a string cannot grow without being filled first.
template <class From, class To>
void AppendByPieces(std::basic_string<To>& to, std::basic_string_view<From> from) {
  constexpr std::size_t kPiece = 512;
  if (from.size() > kPiece) to.reserve(to.size() + from.size());
  std::array<To, kPiece> piece;
  while (!from.empty()) {
    const std::size_t length = from.size() < kPiece ? from.size() : kPiece;
    for (std::size_t i = 0; i < length; ++i) {
      piece[i] = static_cast<To>(static_cast<std::make_unsigned_t<From>>(from[i]));
    }
    to.append(piece.data(), length);
    from.remove_prefix(length);
  }
}

}  // namespace detail

/// @{
/// Adds ASCII characters.
inline void AppendAscii(String& to, std::string_view from) {
  detail::AppendByPieces(to, from);
}
inline void AppendAscii(std::string& to, StringView from) {
  detail::AppendByPieces(to, from);
}
/// @}

/// Adds the text and gives true if it is ASCII characters alone, and no control among them; adds
/// nothing otherwise. One look at each unit answers and copies.
inline bool AppendPlainAscii(std::string& to, StringView from) {
  constexpr std::size_t kPiece = 512;
  const std::size_t start = to.size();
  std::array<char, kPiece> piece;
  while (!from.empty()) {
    const std::size_t length = from.size() < kPiece ? from.size() : kPiece;
    std::uint16_t any = 0;  // as wide as the units: see AnyNeighbours
    for (std::size_t i = 0; i < length; ++i) {
      const std::uint16_t isOther = static_cast<std::uint16_t>(from[i] - u' ') >= 0x80 - u' ';
      any = static_cast<std::uint16_t>(any | isOther);
      piece[i] = static_cast<char>(from[i]);
    }
    if (any != 0) {
      to.resize(start);
      return false;
    }
    to.append(piece.data(), length);
    from.remove_prefix(length);
  }
  return true;
}

}  // namespace norvo
