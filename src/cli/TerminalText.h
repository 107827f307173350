#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norvo::cli {

/// A text for people: what would steer a terminal (control characters, marks of the writing
/// direction) becomes an escape such as \x1B or \u202E; a byte that is not UTF-8 becomes U+FFFD.
/// Showing a shown text again does not change it.
std::string TerminalText(std::string_view text);

/// Goes behind the character of a shown text that begins at `at`; gives the cells that it takes.
std::size_t NextCharacter(std::string_view shown, std::size_t& at);

/// Cells that a shown text takes on a terminal.
std::size_t DisplayWidth(std::string_view shown);

}  // namespace norvo::cli
