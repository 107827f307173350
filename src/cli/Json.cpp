#include "cli/Json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

/// TerminalText() writes \x9B; JSON knows the long form only.
std::string EscapeForJson(const std::string& line) {
  std::string text;
  for (std::size_t i = 0; i < line.size();) {
    const auto lead = static_cast<unsigned char>(line[i]);
    if (lead >= 0x20 && lead < 0x7F) {
      text += line[i++];
      continue;
    }
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const std::string character = line.substr(i, length);
    const std::string shown = TerminalText(character);
    if (shown == character) {
      text += character;
    } else {
      text += shown[1] == 'x' ? "\\u00" + shown.substr(2) : shown;
    }
    i += length;
  }
  return text;
}

}  // namespace

Json JsonNumber(double number) {
  constexpr double kExact = 9007199254740992.0;  // 2 to the 53rd
  if (std::abs(number) <= kExact && std::trunc(number) == number) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

std::string JsonText(const Json& document) {
  constexpr int kIndent = 2;
  const std::string dumped = document.dump(kIndent, ' ', false, Json::error_handler_t::replace);
  std::string text;
  // Line ends stand between the values, never inside them.
  for (std::size_t start = 0; start <= dumped.size();) {
    const std::size_t end = std::min(dumped.find('\n', start), dumped.size());
    text += EscapeForJson(dumped.substr(start, end - start)) + '\n';
    start = end + 1;
  }
  return text;
}

}  // namespace norvo::cli
