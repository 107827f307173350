#include "cli/HtmlText.h"

#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kControlPictures = 0x2400;
constexpr char16_t kDeletePicture = 0x2421;

/// What a browser would not show, or not take, gets a sign.
char16_t Visible(char16_t unit) {
  if (unit < 0x20) return static_cast<char16_t>(kControlPictures + unit);
  if (unit == 0x7F) return kDeletePicture;
  const bool isControl = unit >= 0x80 && unit < 0xA0;
  return isControl || unit >= 0xFFFE ? kReplacement : unit;
}

std::string Escaped(std::string_view text) {
  String visible = FromUtf8Lossy(text);
  for (char16_t& unit : visible) unit = Visible(unit);
  std::string html;
  for (const char character : ToUtf8(visible)) {
    switch (character) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += character;
    }
  }
  return html;
}

}  // namespace

std::string HtmlName(std::string_view name) {
  return "<bdi>" + Escaped(name) + "</bdi>";
}

std::string HtmlText(std::string_view text) {
  return Escaped(TerminalText(text));
}

}  // namespace norvo::cli
