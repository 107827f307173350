#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Command.h"

namespace norvo::cli {

/// The program's command line, which its commands declare.
class CommandLine {
 public:
  CommandLine();

  /// False when there is no command to run: the help or the version was asked for and stands on
  /// `out`, or the usage is wrong, which `err` tells; then `code` is the exit code.
  bool Parse(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
             int& code);

  const CommonArguments& Common() const { return common_; }
  /// Of the command that was asked for.
  std::string Name() const;
  Command& Chosen() { return *ChosenRow().command; }

  /// What it takes, with all texts of the help.
  const CLI::App& Declared() const { return app_; }

 private:
  struct Row {
    std::unique_ptr<Command> command;
    CLI::App* app = nullptr;
  };

  const Row& ChosenRow() const;

  CommonArguments common_;
  std::vector<Row> rows_;
  CLI::App app_;
};

}  // namespace norvo::cli
