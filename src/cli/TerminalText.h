#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvo::cli {

/// A text for people: what would steer a terminal (control characters, marks of the writing
/// direction) becomes an escape such as \x1B or \u202E; a byte that is not UTF-8 becomes U+FFFD.
/// Showing a shown text again does not change it.
std::string TerminalText(std::string_view text);

/// Cells that a shown text takes on a terminal.
std::size_t DisplayWidth(std::string_view shown);

}  // namespace norvo::cli
