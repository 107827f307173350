// Any words as a command line. One that can be run is not: the program must touch no disk here. Any
// other is help, which ends with 0, or a wrong usage, which is told and ends with 2.
#include <functional>
#include <sstream>

#include "Fuzzing.h"
#include "cli/Commands.h"
#include "cli/CommonOptions.h"
#include "cli/Program.h"
#include "cli/TerminalText.h"
#include "cli/UsageWords.h"
#include "text/Encoding.h"

namespace {

using norvo::Require;
using namespace norvo::cli;
using Words = std::vector<std::string>;

/// The program's options, as the program declares them; they serve for all inputs.
class CommandLine {
 public:
  CommandLine() {
    app_.name("norvo-playlists");
    app_.allow_windows_style_options(false);
    app_.set_version_flag("-V,--version", "1");
    app_.require_subcommand(1);
    for (const NewCommand make : AllCommands()) {
      commands_.emplace_back(make())->AddTo(app_, common_);
    }
  }

  /// What the program tells of a line that cannot be run; nothing for one that can. Empty: help.
  std::optional<std::string> Refusal(const Words& words) {
    try {
      app_.parse(Words(words.rbegin(), words.rend()));
      return std::nullopt;
    } catch (const CLI::ParseError& error) {
      if (error.get_exit_code() == 0) return std::string();
      return TerminalText(UsageText(app_, error));
    }
  }

 private:
  CommonArguments common_;
  std::vector<std::unique_ptr<Command>> commands_;
  CLI::App app_;
};

void CheckRun(const Words& words, const std::string& refusal) {
  std::ostringstream out;
  std::ostringstream err;
  const int code = Run(words, out, err);
  Require(code == (refusal.empty() ? 0 : 2));
  Require(out.str().empty() != refusal.empty());
  const std::string told = err.str();
  Require(refusal.empty() ? told.empty() : told.starts_with("norvo-playlists: " + refusal + '\n'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static CommandLine line;
  std::string_view bytes = norvo::AsBytes(data, size);
  Words words;
  while (!bytes.empty()) words.emplace_back(norvo::TakePiece(bytes));
  const std::optional<std::string> refusal = line.Refusal(words);
  if (!refusal) return 0;
  Require(norvo::FromUtf8(*refusal).has_value());
  // To declare all options takes a hundred times what it takes to parse the words.
  if (std::hash<std::string_view>()(norvo::AsBytes(data, size)) % 256 == 0) {
    CheckRun(words, *refusal);
  }
  return 0;
}
