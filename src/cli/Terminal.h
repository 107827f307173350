#pragma once

#include <cstddef>
#include <optional>

namespace norvo::cli {

/// How many cells a line of the terminal behind standard error has; nothing when that is no
/// terminal, or one that does not tell.
std::optional<std::size_t> TerminalWidth();

}  // namespace norvo::cli
