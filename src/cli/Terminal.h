#pragma once

#include <cstddef>
#include <optional>
#include <ostream>

namespace norvo::cli {

/// How many cells a line of the terminal behind standard error has; nothing when that is no
/// terminal, or one that does not tell.
std::optional<std::size_t> TerminalWidth();

/// True for standard output and standard error where a terminal shows them.
bool IsTerminal(const std::ostream& stream);

/// Cells that a line of that stream may take: what COLUMNS asks for, else what the terminal has,
/// else 80.
std::size_t LineWidth(const std::ostream& stream);

/// True for a terminal whose user has not asked for plain text, by NO_COLOR or a TERM that is dumb.
bool TakesColour(const std::ostream& stream);

}  // namespace norvo::cli
