#include <fstream>
#include <iostream>
#include <string>

#include "cli/CommandLine.h"
#include "cli/reference/Completions.h"
#include "cli/reference/ManualPage.h"

namespace norvo::cli {
namespace {

/// Empty for something else.
std::string Written(const std::string& what, const CommandTable& table) {
  if (what == "man") return ManualPage(table, "norvo-playlists " NORVO_VERSION);
  if (what == "bash") return BashCompletion(table);
  if (what == "zsh") return ZshCompletion(table);
  if (what == "fish") return FishCompletion(table);
  return {};
}

}  // namespace
}  // namespace norvo::cli

// Writes what is told of the program outside of it, from the same declarations as its help. A tool
// of the build, not of people.
int main(int count, char** words) {
  const norvo::cli::CommandLine line;
  const std::string text =
      count == 3 ? norvo::cli::Written(words[1], norvo::cli::CommandTableOf(line.Declared())) : "";
  if (text.empty()) {
    std::cerr << "usage: norvo-reference man|bash|zsh|fish FILE\n";
    return 2;
  }
  return (std::ofstream(words[2]) << text).flush() ? 0 : 1;
}
