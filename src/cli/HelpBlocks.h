#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvo::cli {

/// A piece of the help behind the options.
struct HelpBlock {
  std::string text;
  bool isLiteral = false;        ///< a line that stays as it is, such as an example
  bool startsParagraph = false;  ///< a blank line stands before it
};

/// The pieces of a text of the help. Lines that begin with a blank are literal; what stands between
/// them is text, of which only blank lines divide one paragraph from the next.
std::vector<HelpBlock> HelpBlocks(std::string_view help);

}  // namespace norvo::cli
