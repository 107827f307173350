#include "cli/TerminalText.h"

#include <algorithm>
#include <cstdio>

#include "text/Encoding.h"

namespace norvo::cli {
namespace {

struct Range {
  char16_t first;
  char16_t last;
};

constexpr Range kSteering[] = {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C},
                               {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};
constexpr Range kNoCell[] = {
    {0x0300, 0x036F}, {0x200B, 0x200D}, {0xDC00, 0xDFFF}, {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}};
constexpr Range kTwoCells[] = {{0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF},
                               {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},
                               {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}};

template <std::size_t kCount>
bool IsIn(char16_t unit, const Range (&ranges)[kCount]) {
  return std::any_of(std::begin(ranges), std::end(ranges), [unit](const Range& range) {
    return unit >= range.first && unit <= range.last;
  });
}

String Escape(char16_t unit) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, unit < 0x100 ? "\\x%02X" : "\\u%04X",
                static_cast<unsigned>(unit));
  const std::string_view text(buffer);
  return String(text.begin(), text.end());
}

}  // namespace

std::string TerminalText(std::string_view text) {
  String shown;
  for (const char16_t unit : FromUtf8Lossy(text)) {
    if (IsIn(unit, kSteering)) {
      shown += Escape(unit);
    } else {
      shown.push_back(unit);
    }
  }
  return ToUtf8(shown);
}

std::size_t DisplayWidth(std::string_view shown) {
  std::size_t width = 0;
  for (const char16_t unit : FromUtf8Lossy(shown)) {
    if (IsIn(unit, kNoCell)) continue;
    width += IsIn(unit, kTwoCells) ? 2U : 1U;
  }
  return width;
}

}  // namespace norvo::cli
