#include "text/Encoding.h"

#include <algorithm>

#include "text/Ascii.h"
#include "text/Utf16.h"

namespace norvo {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

unsigned ByteAt(std::string_view bytes, std::size_t i) {
  return static_cast<unsigned char>(bytes[i]);
}

/// Length of the valid sequence that starts at `at`, its code point in `point`; 0 when none does.
std::size_t DecodeSequence(std::string_view bytes, std::size_t at, char32_t& point) {
  const unsigned lead = ByteAt(bytes, at);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || at + length > bytes.size()) return 0;
  point = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned next = ByteAt(bytes, at + i);
    if ((next & 0xC0u) != 0x80u) return 0;
    point = (point << 6) | (next & 0x3Fu);
  }
  const bool tooLong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
  const bool outside = point > 0x10FFFF || IsSurrogate(point);
  return tooLong || outside ? 0 : length;
}

/// Decodes UTF-8; false when `strict` and a byte is not valid.
bool DecodeUtf8(std::string_view bytes, bool strict, String& text) {
  if (IsAscii(bytes)) {
    text.clear();
    AppendAscii(text, bytes);
    return true;
  }
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t point = 0;
    const std::size_t length = DecodeSequence(bytes, at, point);
    if (length == 0 && strict) return false;
    if (length == 0) point = kReplacementCharacter;
    AppendCodePoint(text, point);
    at += length == 0 ? 1 : length;
  }
  return true;
}

std::string EncodeUtf16(std::string_view mark, StringView text, bool bigEndian) {
  std::string bytes;
  bytes.reserve(mark.size() + text.size() * 2);
  bytes = mark;
  AppendUtf16(bytes, text, bigEndian);
  return bytes;
}

void AppendPoint(std::string& bytes, char32_t point) {
  if (point < 0x80) {
    bytes.push_back(static_cast<char>(point));
  } else if (point < 0x800) {
    bytes.push_back(static_cast<char>(0xC0 | (point >> 6)));
    bytes.push_back(static_cast<char>(0x80 | (point & 0x3F)));
  } else if (point < 0x10000) {
    bytes.push_back(static_cast<char>(0xE0 | (point >> 12)));
    bytes.push_back(static_cast<char>(0x80 | ((point >> 6) & 0x3F)));
    bytes.push_back(static_cast<char>(0x80 | (point & 0x3F)));
  } else {
    bytes.push_back(static_cast<char>(0xF0 | (point >> 18)));
    bytes.push_back(static_cast<char>(0x80 | ((point >> 12) & 0x3F)));
    bytes.push_back(static_cast<char>(0x80 | ((point >> 6) & 0x3F)));
    bytes.push_back(static_cast<char>(0x80 | (point & 0x3F)));
  }
}

}  // namespace

String DecodeUtf16(std::string_view bytes, bool bigEndian) {
  String text(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned first = ByteAt(bytes, 2 * i);
    const unsigned second = ByteAt(bytes, 2 * i + 1);
    text[i] = static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
  }
  return text;
}

FileEncoding DetectEncoding(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) return FileEncoding::Utf8;
  if (bytes.starts_with(kUtf16LittleMark)) return FileEncoding::Utf16LittleEndian;
  if (bytes.starts_with(kUtf16BigMark)) return FileEncoding::Utf16BigEndian;
  return FileEncoding::CodePage;
}

String DecodeFile(std::string_view bytes, const CodePage& codePage) {
  switch (DetectEncoding(bytes)) {
    case FileEncoding::Utf8:
      return FromUtf8Lossy(bytes.substr(kUtf8Mark.size()));
    case FileEncoding::Utf16LittleEndian:
      return DecodeUtf16(bytes.substr(kUtf16LittleMark.size()), false);
    case FileEncoding::Utf16BigEndian:
      return DecodeUtf16(bytes.substr(kUtf16BigMark.size()), true);
    case FileEncoding::CodePage:
      break;
  }
  return codePage.Decode(bytes);
}

std::string EncodeFile(StringView text, FileEncoding encoding, const CodePage& codePage) {
  switch (encoding) {
    case FileEncoding::Utf8:
      return std::string(kUtf8Mark) + ToUtf8(text);
    case FileEncoding::Utf16LittleEndian:
      return EncodeUtf16(kUtf16LittleMark, text, false);
    case FileEncoding::Utf16BigEndian:
      return EncodeUtf16(kUtf16BigMark, text, true);
    case FileEncoding::CodePage:
      break;
  }
  return codePage.Encode(text);
}

std::optional<String> FromUtf8(std::string_view bytes) {
  String text;
  if (!DecodeUtf8(bytes, true, text)) return std::nullopt;
  return text;
}

String FromUtf8Lossy(std::string_view bytes) {
  String text;
  DecodeUtf8(bytes, false, text);
  return text;
}

void AppendUtf8(std::string& bytes, StringView text) {
  if (IsAscii(text)) return AppendAscii(bytes, text);
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (IsPairAt(text, i)) {
      point = CodePointOf(text[i], text[i + 1]);
      ++i;
    } else if (IsSurrogate(point)) {
      point = kReplacementCharacter;
    }
    AppendPoint(bytes, point);
  }
}

bool IsWholeUtf16(StringView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsSurrogate(text[i])) continue;
    if (!IsPairAt(text, i)) return false;
    ++i;
  }
  return true;
}

std::string ToUtf8(StringView text) {
  std::string bytes;
  bytes.reserve(text.size());
  AppendUtf8(bytes, text);
  return bytes;
}

}  // namespace norvo
