#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Json.h"
#include "cli/Progress.h"
#include "services/Platform.h"

namespace norvo::cli {

/// Exit codes of the program.
namespace exit_code {
inline constexpr int kDone = 0;
inline constexpr int kLeftOut = 1;   ///< done, but something was left out
inline constexpr int kUnusable = 2;  ///< wrong usage, or a machine that cannot be worked on
}  // namespace exit_code

/// Ends a command with exit code 2. The text, in UTF-8, names what is wrong and what to do.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where a command's words go: the report to standard output, everything else to standard error.
/// Lines are UTF-8 and are made safe for a terminal on their way out.
class Console : public MessageDialog {
 public:
  Console(std::ostream& out, std::ostream& err, bool errIsTerminal)
      : out_(out), err_(err), progress_(err, errIsTerminal) {}

  void SetQuiet();
  /// From now on the report is one document; what is left out is kept for it.
  void SetJson();
  bool IsJson() const { return json_; }

  /// A line of the report; dropped when quiet, and when the report is a document.
  void Say(std::string_view line = {});
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
  /// A line on standard error, quiet or not.
  void Tell(std::string_view line);
  /// A message of a machine.
  void Show(StringView title, StringView text) override;

  /// The report as a document, with the exit code and what was left out added to it. Written once.
  void Write(Json document, int code);

  bool HasLeftOut() const { return leftOut_; }
  Progress& Bar() { return progress_; }

  /// Pushes everything out; false, with a message, when standard output does not take it.
  bool Flush();

 private:
  std::ostream& out_;
  std::ostream& err_;
  Progress progress_;
  bool quiet_ = false;
  bool json_ = false;
  bool leftOut_ = false;
  std::vector<std::string> lines_;  // what was left out
};

}  // namespace norvo::cli
