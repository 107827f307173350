#include "cli/Program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <nlohmann/json.hpp>
#include <optional>

#include "automation/RunTimeError.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/ErrorWords.h"
#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"
#include "cli/Version.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

int Fail(const std::string& message, Console& console, int code = exit_code::kUnusable) {
  console.Fail(message);
  if (console.IsJson()) {
    console.Write({{"error", FromUtf8(message) ? message : ToUtf8(FromUtf8Lossy(message))}}, code);
  }
  return code;
}

/// What went wrong, with the machine where the command names one.
int FailOn(const CommandLine& line, const std::string& reason, Console& console) {
  const std::string& machine = line.Common().machine;
  return Fail((machine.empty() ? "" : machine + ": ") + reason, console);
}

int RunCommand(CommandLine& line, Console& console) {
  try {
    const Json report = line.Chosen().Run(line.Common(), console);
    const int code = console.ExitCode();
    if (console.IsJson()) {
      Json document{{"command", line.Name()}};
      if (!line.Common().machine.empty()) document["machine"] = line.Common().machine;
      document.update(report);
      console.Write(std::move(document), code);
    }
    return code;
  } catch (const CommandEnded& ended) {
    return Fail(ended.what(), console, exit_code::kEnded);
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
  const auto wordsOf = [](bool isThisPc) -> const MachineWords& {
    return isThisPc ? kThisPcWords : kFolderWords;
  };
  ChooseWords(wordsOf(line.Chosen().IsFromThisPc(line.Common())),
              wordsOf(line.Chosen().IsOnThisPc(line.Common())));
  KnowCommand(words);
  return RunCommand(line, console);
}

/// Alone, the version is told without making the options of all commands, which would take two
/// thirds of the program's own instructions.
bool AsksVersionAlone(const std::vector<std::string>& words) {
  return words.size() == 1 && (words.front() == "--version" || words.front() == "-V");
}

int RunLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
            bool errIsTerminal) {
  Console console(out, err, errIsTerminal);
  int code = exit_code::kDone;
  if (AsksVersionAlone(words)) {
    out << VersionText() << '\n';
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
