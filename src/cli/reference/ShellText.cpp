#include "cli/reference/ShellText.h"

namespace norvo::cli {

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + '\'';
}

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : between) + word;
  return joined;
}

}  // namespace norvo::cli
