#pragma once

#include <string>

#include "text/Text.h"

namespace norvo {

/// What a character becomes that cannot be told.
inline constexpr char16_t kReplacementCharacter = 0xFFFD;

/// The first half of a pair of units that is one character.
constexpr bool IsHighSurrogate(char32_t unit) noexcept {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

/// The second half.
constexpr bool IsLowSurrogate(char32_t unit) noexcept {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Either half, which is no character.
constexpr bool IsSurrogate(char32_t unit) noexcept {
  return unit >= 0xD800 && unit <= 0xDFFF;
}

/// True when the unit at `at`, which must be there, and the next one are a pair.
constexpr bool IsPairAt(StringView text, std::size_t at) noexcept {
  return IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]);
}

/// The character of a pair.
constexpr char32_t CodePointOf(char16_t high, char16_t low) noexcept {
  return 0x10000 + ((char32_t{high} - 0xD800) << 10) + (char32_t{low} - 0xDC00);
}

/// Adds a character, at most U+10FFFF, as one unit or as a pair.
inline void AppendCodePoint(String& text, char32_t point) {
  if (point < 0x10000) {
    text.push_back(static_cast<char16_t>(point));
    return;
  }
  point -= 0x10000;
  text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
  text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

/// Adds the bytes of a text's units.
inline void AppendUtf16(std::string& bytes, StringView text, bool bigEndian) {
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes.push_back(bigEndian ? high : low);
    bytes.push_back(bigEndian ? low : high);
  }
}

}  // namespace norvo
