#include "cli/TerminalText.h"

#include <algorithm>
#include <cstdio>

#include "cli/CharacterCells.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

struct SteeringRange {
  char16_t first;
  char16_t last;
};

constexpr SteeringRange kSteering[] = {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C},
                                       {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

bool IsSteering(char16_t unit) {
  return std::any_of(
      std::begin(kSteering), std::end(kSteering),
      [unit](const SteeringRange& range) { return unit >= range.first && unit <= range.last; });
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
    if (IsSteering(unit)) {
      shown += Escape(unit);
    } else {
      shown.push_back(unit);
    }
  }
  return ToUtf8(shown);
}

std::size_t NextCharacter(std::string_view shown, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(shown[at]);
  const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
  const std::size_t end = std::min(at + length, shown.size());
  for (++at; at < end; ++at) {
    character = character << 6 | (static_cast<unsigned char>(shown[at]) & 0x3FU);
  }
  return CellsOf(character);
}

std::size_t DisplayWidth(std::string_view shown) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < shown.size();) width += NextCharacter(shown, at);
  return width;
}

}  // namespace norvo::cli
