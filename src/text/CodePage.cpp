#include "text/CodePage.h"

#include <algorithm>
#include <array>

#include "text/Ascii.h"

namespace norvo {
namespace {

constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t DecodeByte(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80u] : char16_t{byte};
}

/// The byte of a character, or -1 when the page lacks it.
int EncodeUnit(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), unit);
  return found == kUpperControls.end() ? -1
                                       : 0x80 + static_cast<int>(found - kUpperControls.begin());
}

std::string OfAscii(StringView text) {
  std::string bytes;
  bytes.reserve(text.size());
  AppendAscii(bytes, text);
  return bytes;
}

class Windows1252Page final : public CodePage {
 public:
  void AppendDecoded(String& text, std::string_view bytes) const override {
    if (IsAscii(bytes)) return AppendAscii(text, bytes);
    text.reserve(text.size() + bytes.size());
    for (const char byte : bytes) text.push_back(DecodeByte(static_cast<unsigned char>(byte)));
  }

  std::string Encode(StringView text) const override {
    if (IsAscii(text)) return OfAscii(text);
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t unit) {
      const int byte = EncodeUnit(unit);
      return byte < 0 ? '?' : static_cast<char>(byte);
    });
    return bytes;
  }

  // Nearly all texts are ASCII: one look at them is enough.
  std::optional<std::string> EncodeFitting(StringView text) const override {
    return IsAscii(text) ? OfAscii(text) : CodePage::EncodeFitting(text);
  }

  bool Fits(StringView text) const override {
    return IsAscii(text) || std::all_of(text.begin(), text.end(),
                                        [](char16_t unit) { return EncodeUnit(unit) >= 0; });
  }
};

}  // namespace

const CodePage& Windows1252() {
  static const Windows1252Page page;
  return page;
}

}  // namespace norvo
