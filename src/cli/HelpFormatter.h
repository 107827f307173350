#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace norvo::cli {

/// Writes the help in lines that every terminal holds, however its texts are broken in the source.
class HelpFormatter final : public CLI::Formatter {
 public:
  std::string make_subcommand(const CLI::App* command) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
  std::string make_footer(const CLI::App* app) const override;
};

}  // namespace norvo::cli
