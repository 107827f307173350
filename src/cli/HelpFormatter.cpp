#include "cli/HelpFormatter.h"

#include <sstream>

#include "cli/HelpBlocks.h"
#include "cli/TextLayout.h"

namespace norvo::cli {
namespace {

constexpr std::size_t kColumns = 80;

/// What stands in the right column.
std::string Right(const std::string& text, std::size_t column) {
  return CLI::detail::join(Wrapped(text, kColumns - column, 0), "\n");
}

}  // namespace

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
  std::ostringstream out;
  CLI::detail::format_help(out, command->get_name(),
                           Right(command->get_description(), get_column_width()),
                           get_column_width());
  return out.str();
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
  return Right(option->get_description(), get_column_width());
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
  std::string footer;
  for (const HelpBlock& block : HelpBlocks(app->get_footer())) {
    if (block.startsParagraph && !footer.empty()) footer += '\n';
    const auto lines =
        block.isLiteral ? std::vector<std::string>{block.text} : Wrapped(block.text, kColumns, 0);
    for (const std::string& line : lines) footer += line + '\n';
  }
  return footer;
}

}  // namespace norvo::cli
