#pragma once

#include <memory>
#include <string>

#include "cli/Console.h"
#include "cli/Json.h"

namespace CLI {
class App;
}

namespace norvo::cli {

/// What every command takes. Texts are the bytes that the shell handed over.
struct CommonArguments {
  std::string machine;  ///< empty for `migrate`, and for `show` without one
  std::string user;     ///< whose documents folder of the machine is meant; may be empty
  bool log = false;
  bool json = false;
  bool quiet = false;
  bool wait = false;         ///< for a machine that another run works on; only where that matters
  bool noReadAhead = false;  ///< only of commands that read ahead
};

/// One command of the program: its arguments, its help and its run stand in one file.
class Command {
 public:
  virtual ~Command() = default;

  /// Adds the command with its options and help to the program's; gives it. `common` and this
  /// outlive it.
  virtual CLI::App* AddTo(CLI::App& program, CommonArguments& common) = 0;

  /// True when the machine that it works on, or brings something to, is this PC.
  virtual bool IsOnThisPc(const CommonArguments& common) const;
  /// The same of the machine that it brings something from, where there are two.
  virtual bool IsFromThisPc(const CommonArguments& common) const { return IsOnThisPc(common); }

  /// Runs the command and gives its report as a document, which is empty unless one was asked for.
  /// What is left out goes to the console. CommandError or MoveError when it cannot be run.
  virtual Json Run(const CommonArguments& common, Console& console) = 0;
};

}  // namespace norvo::cli
