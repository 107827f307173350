#include "cli/HelpBlocks.h"

#include <sstream>

namespace norvo::cli {

std::vector<HelpBlock> HelpBlocks(std::string_view help) {
  std::vector<HelpBlock> blocks;
  bool isNew = true;
  std::istringstream lines{std::string(help)};
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) {
      isNew = true;
      continue;
    }
    const bool isLiteral = line.front() == ' ';
    if (isNew || isLiteral || blocks.back().isLiteral) {
      blocks.push_back({line, isLiteral, isNew});
    } else {
      blocks.back().text += ' ' + line;
    }
    isNew = false;
  }
  return blocks;
}

}  // namespace norvo::cli
