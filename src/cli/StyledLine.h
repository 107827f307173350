#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvo::cli {

/// How a piece of a line looks where colours are shown; elsewhere it looks like the rest.
enum class Style { Plain, Heading, Good, Problem, Dim };

/// A piece of a line.
struct Span {
  std::string text;  ///< UTF-8, as it came from a machine
  Style style = Style::Plain;
};

/// A line for people. None of its texts can steer the terminal.
using StyledLine = std::vector<Span>;

/// What a stream is sent for it, without the end of the line.
std::string TerminalText(const StyledLine& line, bool colour);

}  // namespace norvo::cli
