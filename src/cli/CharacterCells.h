#pragma once

#include <cstddef>

namespace norvo::cli {

/// Cells that a character takes on a terminal: two for those of East Asian scripts and for emoji,
/// none for a mark that combines with the character before it and for what only formats. Control
/// characters, which nobody shows, count as one.
std::size_t CellsOf(char32_t character);

}  // namespace norvo::cli
