#include "cli/Program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <nlohmann/json.hpp>
#include <type_traits>

#include "automation/RunTimeError.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/SystemWords.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

// In the variant's order.
constexpr const char* kCommandNames[] = {"init",    "scan",   "collect", "show",
                                         "restore", "verify", "migrate"};

Json Dispatch(const CommandLine& line, Console& console) {
  return std::visit(
      [&](const auto& command) {
        using Command = std::remove_cvref_t<decltype(command)>;
        if constexpr (std::is_same_v<Command, InitArguments>) {
          return RunInit(line.common, command, console);
        } else if constexpr (std::is_same_v<Command, ScanArguments>) {
          return RunScan(line.common, console);
        } else if constexpr (std::is_same_v<Command, CollectArguments>) {
          return RunCollect(line.common, command, console);
        } else if constexpr (std::is_same_v<Command, RestoreArguments>) {
          return RunRestore(line.common, console);
        } else if constexpr (std::is_same_v<Command, VerifyArguments>) {
          return RunVerify(line.common, command, console);
        } else if constexpr (std::is_same_v<Command, MigrateArguments>) {
          return RunMigrate(line.common, command, console);
        } else {
          return RunShow(line.common, command, console);
        }
      },
      line.command);
}

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
  const std::string& machine = line.common.machine;
  return Fail((machine.empty() ? "" : machine + ": ") + reason, console);
}

int RunCommand(const CommandLine& line, Console& console) {
  try {
    const Json report = Dispatch(line, console);
    const int code = console.HasLeftOut() ? exit_code::kLeftOut : exit_code::kDone;
    if (console.IsJson()) {
      Json document{{"command", kCommandNames[line.command.index()]}};
      if (!line.common.machine.empty()) document["machine"] = line.common.machine;
      document.update(report);
      console.Write(std::move(document), code);
    }
    return code;
  } catch (const HostError& error) {
    return Fail(error.what(), console);
  } catch (const RunTimeError& error) {
    return FailOn(line, ToUtf8(error.Description()) + ". " + kWords.checkRights, console);
  } catch (const std::bad_alloc&) {
    return Fail("There is not enough memory for this machine.", console);
  } catch (const std::exception& error) {
    return FailOn(line, error.what(), console);
  }
}

int RunLine(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
            bool errIsTerminal) {
  Console console(out, err, errIsTerminal);
  int code = exit_code::kDone;
  if (const std::optional<CommandLine> line = ParseCommandLine(words, out, err, code)) {
    if (line->common.quiet) console.SetQuiet();
    if (line->common.json) console.SetJson();
    code = RunCommand(*line, console);
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

}  // namespace norvo
