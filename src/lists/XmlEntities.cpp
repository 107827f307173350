#include "lists/XmlEntities.h"

#include <cstdint>

#include "text/Utf16.h"

namespace norvo {
namespace {

// "&#x10FFFF;" is the longest that anybody needs; the cap keeps a text of many "&" cheap.
constexpr std::size_t kLongestEntity = 12;

struct NamedEntity {
  StringView name;
  char32_t point;
};
constexpr NamedEntity kNames[] = {
    {u"amp", U'&'}, {u"lt", U'<'}, {u"gt", U'>'}, {u"quot", U'"'}, {u"apos", U'\''}};

/// Value of a digit of either base; 16 for what is none.
std::uint32_t DigitValue(char16_t unit) {
  const char16_t lower = ToLowerAscii(unit);
  if (IsDigit(unit)) return static_cast<std::uint32_t>(unit - u'0');
  return lower >= u'a' && lower <= u'f' ? static_cast<std::uint32_t>(lower - u'a' + 10) : 16;
}

/// The character of "#38" or "#x26"; 0 for what is none.
char32_t NumberedPoint(StringView number) {
  number.remove_prefix(1);
  const bool hexadecimal = !number.empty() && ToLowerAscii(number.front()) == u'x';
  if (hexadecimal) number.remove_prefix(1);
  const std::uint32_t base = hexadecimal ? 16 : 10;
  std::uint64_t point = 0;
  for (const char16_t unit : number) {
    if (DigitValue(unit) >= base) return 0;
    point = point * base + DigitValue(unit);
  }
  const bool isNone = point > 0x10FFFF || IsSurrogate(static_cast<char32_t>(point));
  return isNone ? 0 : static_cast<char32_t>(point);
}

/// The character that an entity's name stands for; 0 for none.
char32_t PointOf(StringView name) {
  if (name.starts_with(u'#')) return NumberedPoint(name);
  for (const NamedEntity& entity : kNames) {
    if (EqualsIgnoreCase(name, entity.name)) return entity.point;
  }
  return 0;
}

}  // namespace

String DecodeEntities(StringView text) {
  if (FindUnit(text, u'&') == StringView::npos) return String(text);
  String decoded;
  decoded.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const StringView piece = text.substr(at, kLongestEntity);
    const std::size_t end = piece.front() == u'&' ? piece.find(u';') : StringView::npos;
    const char32_t point = end == StringView::npos ? 0 : PointOf(piece.substr(1, end - 1));
    if (point == 0) {
      decoded.push_back(text[at++]);
    } else {
      AppendCodePoint(decoded, point);
      at += end + 1;
    }
  }
  return decoded;
}

}  // namespace norvo
