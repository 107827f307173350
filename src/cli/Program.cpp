#include "cli/Program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

#include "automation/RunTimeError.h"
#include "cli/Commands.h"
#include "cli/CommonOptions.h"
#include "cli/Console.h"
#include "cli/ErrorWords.h"
#include "cli/MachineWords.h"
#include "cli/TerminalText.h"
#include "cli/UsageWords.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr HelpText kAbout = {
    "Moves the playlists of a Windows machine, and their songs, to another one.",
    "Writes the playlists of this machine as neutral files, and native ones from those."};

constexpr HelpText kHelp = {R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists migrate --from /mnt/old-disk --to /mnt/new-disk
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'

DIR of --machine, --from and --to is a mounted disk of a Windows PC, which is drive C then, or a
machine folder: it holds a folder per drive, named by its letter (C, D, ...), and nothing else but
machine.ini (types and places of the drives) and registry.reg (the machine's registry). With a
machine.ini that tells of a machine it may hold anything.

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on.)",
                            R"(Examples:
  norvo-playlists init
  norvo-playlists scan
  norvo-playlists collect --init
  norvo-playlists show C:\Music\Mix.m3u
  norvo-playlists restore
  norvo-playlists verify

The program works on the machine that it runs on: its drives, its registry, its players.

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on.)"};

constexpr const char* kVersion = "norvo-playlists " NORVO_VERSION;

/// The program's command line, which its commands declare.
class CommandLine {
 public:
  CommandLine() : app_(kAbout.Here()) {
    app_.name("norvo-playlists");
    // "/Music/Mix.m3u" is a path, on Windows too.
    app_.allow_windows_style_options(false);
    app_.set_version_flag("--version", kVersion);
    app_.footer(kHelp.Here());
    app_.require_subcommand(1);
    for (const NewCommand make : AllCommands()) {
      Row& row = rows_.emplace_back();
      row.command = make();
      row.app = row.command->AddTo(app_, common_);
    }
  }

  /// False when there is no command to run: the help or the version was asked for and stands on
  /// `out`, or the usage is wrong, which `err` tells; then `code` is the exit code.
  bool Parse(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
             int& code) {
    try {
      app_.parse(std::vector<std::string>(words.rbegin(), words.rend()));
      return true;
    } catch (const CLI::ParseError& error) {
      const bool isHelp = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
      code = isHelp ? exit_code::kDone : exit_code::kUnusable;
      if (isHelp) {
        app_.exit(error, out, err);
      } else {
        err << "norvo-playlists: " << TerminalText(UsageText(app_, error))
            << "\nRun norvo-playlists --help, or norvo-playlists COMMAND --help.\n";
      }
      return false;
    }
  }

  const CommonArguments& Common() const { return common_; }
  std::string Name() const { return ChosenRow().app->get_name(); }
  Command& Chosen() { return *ChosenRow().command; }

 private:
  struct Row {
    std::unique_ptr<Command> command;
    CLI::App* app = nullptr;
  };

  const Row& ChosenRow() const {
    return *std::find_if(rows_.begin(), rows_.end(),
                         [](const Row& row) { return row.app->parsed(); });
  }

  CommonArguments common_;
  std::vector<Row> rows_;
  CLI::App app_;
};

int Fail(const std::string& message, Console& console) {
  console.Fail(message);
  if (console.IsJson()) {
    console.Write({{"error", FromUtf8(message) ? message : ToUtf8(FromUtf8Lossy(message))}},
                  exit_code::kUnusable);
  }
  return exit_code::kUnusable;
}

/// What went wrong, with the machine where the command names one.
int FailOn(const CommandLine& line, const std::string& reason, Console& console) {
  const std::string& machine = line.Common().machine;
  return Fail((machine.empty() ? "" : machine + ": ") + reason, console);
}

int RunCommand(CommandLine& line, Console& console) {
  try {
    const Json report = line.Chosen().Run(line.Common(), console);
    const int code = console.HasLeftOut() ? exit_code::kLeftOut : exit_code::kDone;
    if (console.IsJson()) {
      Json document{{"command", line.Name()}};
      if (!line.Common().machine.empty()) document["machine"] = line.Common().machine;
      document.update(report);
      console.Write(std::move(document), code);
    }
    return code;
  } catch (const CommandError& error) {
    return Fail(error.what(), console);
  } catch (const MoveError& error) {
    return Fail(TextOf(error), console);
  } catch (const RunTimeError& error) {
    return FailOn(line, ToUtf8(error.Description()) + ". " + Words().checkRights, console);
  } catch (const std::bad_alloc&) {
    return Fail("There is not enough memory for this machine.", console);
  } catch (const std::exception& error) {
    return FailOn(line, error.what(), console);
  }
}

int ParseAndRun(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
                Console& console) {
  CommandLine line;
  int code = exit_code::kDone;
  if (!line.Parse(words, out, err, code)) return code;
  if (line.Common().quiet) console.SetQuiet();
  if (line.Common().json) console.SetJson();
  ChooseWords(line.Chosen().IsOnThisPc(line.Common()) ? kThisPcWords : kFolderWords);
  return RunCommand(line, console);
}

/// Alone, the version is told without making the options of all commands, which would take two
/// thirds of the program's own instructions.
bool AsksVersionAlone(const std::vector<std::string>& words) {
  return words.size() == 1 && words.front() == "--version";
}

int RunLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
            bool errIsTerminal) {
  Console console(out, err, errIsTerminal);
  int code = exit_code::kDone;
  if (AsksVersionAlone(words)) {
    out << kVersion << '\n';
  } else {
    code = ParseAndRun(words, out, err, console);
  }
  return console.Flush() ? code : std::max(code, exit_code::kLeftOut);
}

/// The end of a run that could not even tell of its failure in the usual way.
int GiveUp(const char* reason, std::ostream& err) {
  try {
    err << "norvo-playlists: the program cannot go on: " << reason << std::endl;
  } catch (...) {
    // Standard error does not take it; the exit code tells.
  }
  return exit_code::kUnusable;
}

}  // namespace

int Run(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
        bool errIsTerminal) noexcept {
  try {
    return RunLine(words, out, err, errIsTerminal);
  } catch (const std::exception& error) {
    return GiveUp(error.what(), err);
  } catch (...) {
    return GiveUp("for an unknown reason", err);
  }
}

}  // namespace norvo::cli
