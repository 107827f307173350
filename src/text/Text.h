#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvo {

/// Every text inside the library is counted UTF-16; an empty text and a missing value are the
/// same. Other encodings exist only at the edges (see text/CodePage.h and text/Encoding.h).
using String = std::u16string;
using StringView = std::u16string_view;

/// How characters are compared: unit by unit, or by the upper case of each unit.
enum class Compare { Binary, Text };

/// Upper case of one UTF-16 unit; a unit without an upper-case form is its own.
char16_t ToUpper(char16_t unit) noexcept;

/// Lower case of one UTF-16 unit of the ASCII range; every other unit is returned as it is.
constexpr char16_t ToLowerAscii(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

constexpr bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

/// The text in upper case, unit by unit. Two texts are equal without regard to case exactly when
/// their folded forms are equal.
String Fold(StringView text);

bool EqualsIgnoreCase(StringView left, StringView right) noexcept;
bool EndsWithIgnoreCase(StringView text, StringView ending) noexcept;

/// 0-based position of the first occurrence at or after `from`, npos when there is none. The
/// empty text is found at `from`.
std::size_t FindIgnoreCase(StringView text, StringView sought, std::size_t from = 0) noexcept;

inline bool ContainsIgnoreCase(StringView text, StringView sought) noexcept {
  return FindIgnoreCase(text, sought) != StringView::npos;
}

/// The text without its leading and trailing blanks (character 32 only).
StringView Trim(StringView text) noexcept;

/// Orders texts by their folded forms, and texts that differ only in case by their units, so that
/// an order is always complete.
bool LessIgnoreCase(StringView left, StringView right) noexcept;

/// Hash and equality that do not regard case, for unordered containers.
struct CaselessHash {
  using is_transparent = void;
  std::size_t operator()(StringView text) const noexcept;
};
struct CaselessEqual {
  using is_transparent = void;
  bool operator()(StringView left, StringView right) const noexcept {
    return EqualsIgnoreCase(left, right);
  }
};

}  // namespace norvo
