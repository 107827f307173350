#include "cli/StyledLine.h"

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

const char* EscapeCodeOf(Style style) {
  switch (style) {
    case Style::Plain:
      break;
    case Style::Heading:
      return "1";
    case Style::Good:
      return "32";
    case Style::Problem:
      return "33";
    case Style::Dim:
      return "2";
  }
  return "";
}

}  // namespace

std::string TerminalText(const StyledLine& line, bool colour) {
  std::string text;
  for (const Span& span : line) {
    const bool isStyled = colour && span.style != Style::Plain && !span.text.empty();
    if (isStyled) text += std::string("\x1B[") + EscapeCodeOf(span.style) + 'm';
    text += TerminalText(span.text);
    if (isStyled) text += "\x1B[0m";
  }
  return text;
}

}  // namespace norvo::cli
