#include "platform/nt/WideNames.h"

#include <windows.h>

#include <algorithm>

#include "platform/nt/WindowsCode.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

// No disk has longer names.
constexpr std::size_t kLongestName = 255;

constexpr bool IsHalf(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDFFF;
}
constexpr bool IsFirstHalf(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

/// True for the half of a pair at `at` that has no other half.
bool IsLone(StringView text, std::size_t at) {
  if (!IsHalf(text[at])) return false;
  if (IsFirstHalf(text[at])) {
    return at + 1 == text.size() || !IsHalf(text[at + 1]) || IsFirstHalf(text[at + 1]);
  }
  return at == 0 || !IsFirstHalf(text[at - 1]);
}

constexpr std::size_t kHalfBytes = 3;

void AppendHalf(std::string& bytes, char16_t half) {
  bytes.push_back('\xED');
  bytes.push_back(static_cast<char>(0x80 | (half >> 6 & 0x3F)));
  bytes.push_back(static_cast<char>(0x80 | (half & 0x3F)));
}

unsigned ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

/// Where the next half of a pair stands in such bytes; their end without one.
std::size_t FindHalf(std::string_view bytes, std::size_t from) {
  for (std::size_t at = from; at + kHalfBytes <= bytes.size(); ++at) {
    if (ByteAt(bytes, at) == 0xED && (ByteAt(bytes, at + 1) & 0xE0) == 0xA0 &&
        (ByteAt(bytes, at + 2) & 0xC0) == 0x80) {
      return at;
    }
  }
  return bytes.size();
}

}  // namespace

std::string FromWideName(StringView name) {
  std::string bytes;
  std::size_t done = 0;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (!IsLone(name, at)) continue;
    AppendUtf8(bytes, name.substr(done, at - done));
    AppendHalf(bytes, name[at]);
    done = at + 1;
  }
  AppendUtf8(bytes, name.substr(done));
  return bytes;
}

std::optional<String> ToWideName(std::string_view bytes) {
  if (std::optional<String> text = FromUtf8(bytes)) return text;
  String name;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t half = FindHalf(bytes, at);
    const std::optional<String> part = FromUtf8(bytes.substr(at, half - at));
    if (!part) return std::nullopt;
    name += *part;
    if (half == bytes.size()) break;
    name.push_back(static_cast<char16_t>(0xD000 | (ByteAt(bytes, half + 1) & 0x3F) << 6 |
                                         (ByteAt(bytes, half + 2) & 0x3F)));
    at = half + kHalfBytes;
  }
  return name;
}

FileFailure FailureOfName(StringView name) {
  const bool isForbidden =
      name.empty() || name == u"." || name == u".." ||
      std::any_of(name.begin(), name.end(), [](char16_t unit) {
        return unit < u' ' || StringView(u"<>:\"/\\|?*").find(unit) != StringView::npos;
      });
  if (isForbidden) return FailureOfCode(ERROR_INVALID_NAME);
  return name.size() > kLongestName ? FailureOfCode(ERROR_FILENAME_EXCED_RANGE) : FileFailure();
}

}  // namespace norvo
