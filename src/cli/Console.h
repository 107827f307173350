#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Json.h"
#include "cli/Progress.h"
#include "cli/StyledLine.h"
#include "services/Platform.h"

namespace norvo::cli {

/// Exit codes of the program.
namespace exit_code {
inline constexpr int kDone = 0;
inline constexpr int kLeftOut = 1;   ///< done, but something was left out
inline constexpr int kUnusable = 2;  ///< wrong usage, or a machine that cannot be worked on
inline constexpr int kEnded = 130;   ///< the user has ended it, as the shell would tell of Ctrl+C
}  // namespace exit_code

/// Ends a command with exit code 2. The text, in UTF-8, names what is wrong and what to do.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Ends a command with exit code 130, since the user wished it. The text tells how to go on.
class CommandEnded : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where a command's words go: the report to standard output, everything else to standard error.
/// Lines are UTF-8 and are made safe for a terminal on their way out.
class Console : public MessageDialog {
 public:
  Console(std::ostream& out, std::ostream& err, bool errIsTerminal);

  void SetQuiet();
  /// From now on the report is one document; what is left out is kept for it.
  void SetJson();
  bool IsJson() const { return json_; }

  /// A line of the report; dropped when quiet, and when the report is a document.
  void Say(std::string_view line = {});
  /// The same in colours, where standard output shows them.
  void Say(const StyledLine& line);
  /// Cells that a line of the report may take.
  std::size_t Width() const;
  /// True when the user reads the report as it is written: on a terminal, neither quiet nor as a
  /// document.
  bool IsReportSeen() const;
  /// A line of what the user asked for itself; dropped only when the report is a document.
  void Print(std::string_view line);
  /// Something worth knowing that is no failure.
  void Note(std::string_view line);
  /// Something that was not done, or not whole: the exit code will tell.
  void LeftOut(const std::string& line);
  /// The same for what has been told already.
  void KeepLeftOut(const std::string& line);
  /// Why the command ends here.
  void Fail(std::string_view line);
  /// The same of a command that tells what it has done until the user has ended it.
  void End(std::string_view line);
  /// A line on standard error, quiet or not.
  void Tell(std::string_view line);
  /// A message of a machine.
  void Show(StringView title, StringView text) override;

  /// The report as a document, to which the version of its names, the exit code and what was left
  /// out are added. Written once.
  void Write(const Json& document, int code);

  /// The exit code of a command that has come so far.
  int ExitCode() const;
  Progress& Bar() { return progress_; }

  /// Pushes everything out; false, with a message, when standard output does not take it.
  bool Flush();

 private:
  std::ostream& out_;
  std::ostream& err_;
  Progress progress_;
  bool outIsTerminal_;
  bool colour_;
  bool quiet_ = false;
  bool json_ = false;
  bool leftOut_ = false;
  bool ended_ = false;
  std::vector<std::string> lines_;  // what was left out
};

}  // namespace norvo::cli
