#pragma once

#include <string>
#include <vector>

namespace norvo::cli {

/// One word of a line of bash or zsh, in single quotes.
std::string Quoted(const std::string& text);

/// Words with something between them.
std::string Joined(const std::vector<std::string>& words, const std::string& between);

}  // namespace norvo::cli
