#include "platform/hosted/RegistryValueText.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace norvo {
namespace {

constexpr StringView kHexDigits = u"0123456789abcdef";
constexpr StringView kDwordMark = u"dword:";
constexpr StringView kBinaryMark = u"hex:";
constexpr std::size_t kDoubleBytes = 8;

StringView TrimLine(StringView text) {
  return Trim(text, IsRegistryBlank);
}

/// Behind the line end of the line that holds `at`.
std::size_t LineEnd(StringView text, std::size_t at) {
  const std::size_t feed = text.find(u'\n', at);
  return feed == StringView::npos ? text.size() : feed + 1;
}

bool StartsWithIgnoreCase(StringView text, StringView start) {
  return EqualsIgnoreCase(text.substr(0, start.size()), start);
}

/// Position of the quote that closes the text opened at `open`, npos without one before `limit`.
std::size_t ClosingQuote(StringView text, std::size_t open, std::size_t limit) {
  for (std::size_t i = open + 1; i < limit; ++i) {
    if (text[i] == u'\\') {
      ++i;
    } else if (text[i] == u'"') {
      return i;
    }
  }
  return StringView::npos;
}

/// A backslash before any other character stands for itself, as people write it by hand.
String Unescape(StringView text) {
  String plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t next = i + 1 < text.size() ? text[i + 1] : u'\0';
    if (text[i] == u'\\' && (next == u'\\' || next == u'"')) ++i;
    plain.push_back(text[i]);
  }
  return plain;
}

String Quote(StringView text) {
  String quoted = u"\"";
  for (const char16_t unit : text) {
    if (unit == u'\\' || unit == u'"') quoted.push_back(u'\\');
    quoted.push_back(unit);
  }
  return quoted + u'"';
}

/// Behind the whole data that starts at `data`, its line end included.
std::size_t DataEnd(StringView text, std::size_t data) {
  std::size_t end = LineEnd(text, data);
  const StringView line = TrimLine(text.substr(data, end - data));
  if (line.starts_with(u'"')) {
    const std::size_t open = text.find(u'"', data);
    const std::size_t close = ClosingQuote(text, open, text.size());
    if (close == StringView::npos || close < end) return end;
    // A text with line ends in it; a quote that is followed by more belongs to another line.
    const std::size_t lastEnd = LineEnd(text, close);
    return TrimLine(text.substr(close + 1, lastEnd - close - 1)).empty() ? lastEnd : end;
  }
  if (!StartsWithIgnoreCase(line, u"hex")) return end;
  for (std::size_t start = data; end < text.size();) {
    if (!TrimLine(text.substr(start, end - start)).ends_with(u'\\')) break;
    start = end;
    end = LineEnd(text, start);
  }
  return end;
}

/// Value of a run of hexadecimal digits; nothing when it is none or longer than `most`.
std::optional<std::uint32_t> ParseHex(StringView digits, std::size_t most) {
  if (digits.empty() || digits.size() > most) return std::nullopt;
  std::uint32_t value = 0;
  for (const char16_t digit : digits) {
    const std::size_t found = kHexDigits.find(ToLowerAscii(digit));
    if (found == StringView::npos) return std::nullopt;
    value = value << 4 | static_cast<std::uint32_t>(found);
  }
  return value;
}

std::optional<RegistryValue> ParseDouble(StringView bytes) {
  std::uint64_t bits = 0;
  std::size_t count = 0;
  while (!bytes.empty()) {
    const std::size_t comma = std::min(bytes.find(u','), bytes.size());
    StringView item = TrimLine(bytes.substr(0, comma));
    if (item.starts_with(u'\\')) item = TrimLine(item.substr(1));  // the line went on here
    const std::optional<std::uint32_t> byte = ParseHex(item, 2);
    if (!byte || count == kDoubleBytes) return std::nullopt;
    bits |= std::uint64_t{*byte} << (8 * count++);
    bytes.remove_prefix(std::min(comma + 1, bytes.size()));
  }
  if (count != kDoubleBytes) return std::nullopt;
  return std::bit_cast<double>(bits);
}

String FormatHex(std::uint32_t value, int digits) {
  String text;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text.push_back(kHexDigits[value >> shift & 0xF]);
  }
  return text;
}

String FormatData(const RegistryValue& value) {
  if (const auto* const text = std::get_if<String>(&value)) {
    return Quote(BeforeNul(*text));  // a NUL ends a registry text
  }
  if (const auto* const number = std::get_if<std::int32_t>(&value)) {
    return String(kDwordMark) + FormatHex(static_cast<std::uint32_t>(*number), 8);
  }
  const auto bits = std::bit_cast<std::uint64_t>(std::get<double>(value));
  String text(kBinaryMark);
  for (std::size_t i = 0; i < kDoubleBytes; ++i) {
    if (i > 0) text.push_back(u',');
    text += FormatHex(static_cast<std::uint32_t>(bits >> (8 * i) & 0xFF), 2);
  }
  return text;
}

}  // namespace

RegistryLine ReadRegistryLine(StringView text, std::size_t start) {
  RegistryLine line;
  line.end = LineEnd(text, start);
  std::size_t at = start;
  while (at < line.end && (text[at] == u' ' || text[at] == u'\t')) ++at;
  if (at == line.end) return line;
  std::size_t behindName = at + 1;
  String name;
  if (text[at] == u'"') {
    const std::size_t close = ClosingQuote(text, at, line.end);
    if (close == StringView::npos) return line;
    name = Unescape(text.substr(at + 1, close - at - 1));
    behindName = close + 1;
  } else if (text[at] != u'@') {
    return line;
  }
  while (behindName < line.end && text[behindName] == u' ') ++behindName;
  if (behindName == line.end || text[behindName] != u'=') return line;
  line.name = std::move(name);
  line.data = behindName + 1;
  line.end = DataEnd(text, line.data);
  return line;
}

std::optional<RegistryValue> ParseRegistryData(StringView data) {
  data = TrimLine(data);
  if (data.starts_with(u'"')) {
    const std::size_t close = ClosingQuote(data, 0, data.size());
    if (close == StringView::npos || close + 1 != data.size()) return std::nullopt;
    return Unescape(data.substr(1, close - 1));
  }
  if (StartsWithIgnoreCase(data, kDwordMark)) {
    const std::optional<std::uint32_t> number = ParseHex(data.substr(kDwordMark.size()), 8);
    if (!number) return std::nullopt;
    return static_cast<std::int32_t>(*number);
  }
  if (StartsWithIgnoreCase(data, kBinaryMark)) return ParseDouble(data.substr(kBinaryMark.size()));
  return std::nullopt;
}

std::optional<String> FormatRegistryValue(StringView name, const RegistryValue& value) {
  if (std::any_of(name.begin(), name.end(), IsAsciiControl)) return std::nullopt;
  return (name.empty() ? String(u"@") : Quote(name)) + u'=' + FormatData(value);
}

}  // namespace norvo
