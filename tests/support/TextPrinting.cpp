#include "support/TextPrinting.h"

#include <cstdio>

#include "text/Encoding.h"

namespace norvo {
namespace {

bool IsHighHalf(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowHalf(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::string Utf8(StringView text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = IsHighHalf(text[i]) && i + 1 < text.size() && IsLowHalf(text[i + 1]);
    if (pair || (!IsHighHalf(text[i]) && !IsLowHalf(text[i]))) {
      AppendUtf8(shown, text.substr(i, pair ? 2 : 1));
      i += pair ? 1 : 0;
      continue;
    }
    char half[16];
    std::snprintf(half, sizeof half, "\\u{%04X}", static_cast<unsigned>(text[i]));
    shown += half;
  }
  return shown;
}

Lines Utf8(const std::vector<String>& texts) {
  Lines lines;
  for (const String& text : texts) lines.push_back(Utf8(text));
  return lines;
}

}  // namespace norvo
