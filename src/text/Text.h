#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "text/UnitWords.h"

/// All names of the library.
namespace norvo {

/// Every text inside the library is counted UTF-16; an empty text and a missing value are the
/// same. Other encodings exist only at the edges (see text/CodePage.h and text/Encoding.h).
using String = std::u16string;
/// A view of such a text.
using StringView = std::u16string_view;

/// Ends each line of the text files that the library writes.
constexpr StringView kLineEnd = u"\r\n";

/// How characters are compared: unit by unit, or by the upper case of each unit.
enum class Compare {
  Binary,  ///< unit by unit
  Text     ///< by the upper case
};

/// For units from U+0080 on, see `ToUpper`.
char16_t ToUpperBeyondAscii(char16_t unit) noexcept;

/// Upper case of one UTF-16 unit; a unit without an upper-case form is its own.
inline char16_t ToUpper(char16_t unit) noexcept {
  if (unit >= 0x80) return ToUpperBeyondAscii(unit);
  return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
}

/// Lower case of one UTF-16 unit of the ASCII range; every other unit is returned as it is.
constexpr char16_t ToLowerAscii(char16_t unit) noexcept {
  return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

/// True for 0 to 9.
constexpr bool IsDigit(char16_t unit) noexcept {
  return unit >= u'0' && unit <= u'9';
}

/// The text in upper case, unit by unit. Two texts are equal without regard to case exactly when
/// their folded forms are equal.
String Fold(StringView text);

namespace detail {
/// Both have so many units.
bool EqualsIgnoreCase(const char16_t* left, const char16_t* right, std::size_t units) noexcept;
}  // namespace detail

/// True when the folded forms are equal.
inline bool EqualsIgnoreCase(StringView left, StringView right) noexcept {
  // Most texts that are compared differ in length, which takes no call to see.
  return left.size() == right.size() &&
         detail::EqualsIgnoreCase(left.data(), right.data(), left.size());
}
/// True when the folded form of `text` ends in that of `ending`; every text ends in the empty one.
bool EndsWithIgnoreCase(StringView text, StringView ending) noexcept;

/// 0-based position of the first occurrence at or after `from`, npos when there is none. The
/// empty text is found at `from`.
std::size_t FindIgnoreCase(StringView text, StringView sought, std::size_t from = 0) noexcept;

/// True when `sought` stands anywhere in `text`.
inline bool ContainsIgnoreCase(StringView text, StringView sought) noexcept {
  return FindIgnoreCase(text, sought) != StringView::npos;
}

/// @{
/// Kinds of units around names and values; each format has its own idea of what is not part of
/// them.
constexpr bool IsBlankOrTab(char16_t unit) noexcept {
  return unit == u' ' || unit == u'\t';
}
constexpr bool IsAsciiControl(char16_t unit) noexcept {
  return unit < u' ';
}
constexpr bool IsBlankOrControl(char16_t unit) noexcept {
  return unit <= u' ';
}
/// @}

/// @{
/// The text without the units at its start, at its end, or at both, that `isDropped` accepts.
template <class IsDropped>
constexpr StringView TrimStart(StringView text, IsDropped isDropped) noexcept {
  while (!text.empty() && isDropped(text.front())) text.remove_prefix(1);
  return text;
}
template <class IsDropped>
constexpr StringView TrimEnd(StringView text, IsDropped isDropped) noexcept {
  while (!text.empty() && isDropped(text.back())) text.remove_suffix(1);
  return text;
}
template <class IsDropped>
constexpr StringView Trim(StringView text, IsDropped isDropped) noexcept {
  return TrimEnd(TrimStart(text, isDropped), isDropped);
}
/// @}

/// The text without its leading and trailing blanks (character 32 only).
constexpr StringView Trim(StringView text) noexcept {
  return Trim(text, [](char16_t unit) { return unit == u' '; });
}

/// 0-based position of the first such unit at or after `from`, npos when there is none. The same as
/// `find`, which looks at one unit at a time, at four.
std::size_t FindUnit(StringView text, char16_t unit, std::size_t from = 0) noexcept;

/// 0-based position of the first CR or LF at or after `from`, the text's length when there is none.
std::size_t FindLineEnd(StringView text, std::size_t from = 0) noexcept;

/// The same as `==`, which looks at one unit at a time, as bytes.
inline bool SameUnits(StringView left, StringView right) noexcept {
  if (left.size() != right.size()) return false;
  return left.empty() ||
         std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

/// True for a text with a unit below the blank.
inline bool HasControls(StringView text) noexcept {
  constexpr std::uint64_t kAboveControls = InEachLane(static_cast<char16_t>(0xFFE0));
  return AnyWord(text, u' ',
                 [](std::uint64_t word) { return ZeroLanes<char16_t>(word & kAboveControls); });
}

/// The text before its first NUL character.
inline StringView BeforeNul(StringView text) noexcept {
  return HasControls(text) ? text.substr(0, FindUnit(text, u'\0')) : text;
}

/// The pieces between the separators, as views of `text`: one more than there are separators.
std::vector<StringView> Split(StringView text, char16_t separator);

/// Orders texts by their folded forms, and texts that differ only in case by their units, so that
/// an order is always complete.
bool LessIgnoreCase(StringView left, StringView right) noexcept;

/// A hash by which unordered containers of texts look a view up without a copy.
struct UnitHash {
  using is_transparent = void;  ///< a view is looked up without a copy
  /// As of a standard view.
  std::size_t operator()(StringView text) const noexcept { return std::hash<StringView>()(text); }
};
/// The equality that belongs to `UnitHash`.
struct UnitEqual {
  using is_transparent = void;  ///< a view is compared without a copy
  /// See `SameUnits`.
  bool operator()(StringView left, StringView right) const noexcept {
    return SameUnits(left, right);
  }
};

/// A hash that does not regard case, for unordered containers.
struct CaselessHash {
  using is_transparent = void;  ///< a view is looked up without a copy
  /// The hash of the folded form.
  std::size_t operator()(StringView text) const noexcept;
};
/// The equality that belongs to `CaselessHash`.
struct CaselessEqual {
  using is_transparent = void;  ///< a view is compared without a copy
  /// See `EqualsIgnoreCase`.
  bool operator()(StringView left, StringView right) const noexcept {
    return EqualsIgnoreCase(left, right);
  }
};

}  // namespace norvo
