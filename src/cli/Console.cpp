#include "cli/Console.h"

#include <nlohmann/json.hpp>

#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

// Of docs/json-output.schema.json: grows when a name goes or changes its meaning.
constexpr int kDocumentVersion = 1;

}  // namespace

Console::Console(std::ostream& out, std::ostream& err, bool errIsTerminal)
    : out_(out),
      err_(err),
      progress_(err, errIsTerminal),
      outIsTerminal_(IsTerminal(out)),
      colour_(TakesColour(out)) {}

void Console::SetQuiet() {
  quiet_ = true;
  progress_.TurnOff();
}

void Console::SetJson() {
  json_ = true;
}

void Console::Say(std::string_view line) {
  if (!quiet_) Print(line);
}

void Console::Say(const StyledLine& line) {
  if (quiet_ || json_) return;
  progress_.Clear();
  out_ << TerminalText(line, colour_) << '\n';
}

std::size_t Console::Width() const {
  return LineWidth(out_);
}

bool Console::IsReportSeen() const {
  return outIsTerminal_ && !quiet_ && !json_;
}

void Console::Print(std::string_view line) {
  if (json_) return;
  progress_.Clear();
  out_ << TerminalText(line) << '\n';
}

void Console::Note(std::string_view line) {
  if (!quiet_) Tell(line);
}

void Console::LeftOut(const std::string& line) {
  KeepLeftOut(line);
  Tell(line);
}

void Console::KeepLeftOut(const std::string& line) {
  leftOut_ = true;
  if (json_) lines_.push_back(line);
}

void Console::Fail(std::string_view line) {
  Tell("norvo-playlists: " + std::string(line));
}

void Console::End(std::string_view line) {
  ended_ = true;
  Fail(line);
}

int Console::ExitCode() const {
  if (ended_) return exit_code::kEnded;
  return leftOut_ ? exit_code::kLeftOut : exit_code::kDone;
}

void Console::Tell(std::string_view line) {
  progress_.Clear();
  err_ << TerminalText(line) + '\n';  // in one write, as the stream is not buffered
}

void Console::Show(StringView title, StringView text) {
  Tell(title.empty() ? ToUtf8(text) : ToUtf8(title) + ": " + ToUtf8(text));
}

void Console::Write(const Json& document, int code) {
  progress_.Clear();
  Json whole{{"version", kDocumentVersion}};
  whole.update(document);
  whole["leftOut"] = lines_;
  whole["exitCode"] = code;
  out_ << JsonText(whole);
}

bool Console::Flush() {
  progress_.Clear();
  out_.flush();
  const bool taken = static_cast<bool>(out_);
  if (!taken) {
    Fail(
        "Standard output cannot be written (closed, or its disk is full): the report is not "
        "complete. The work itself is done; run again, or use --quiet.");
  }
  err_.flush();
  return taken;
}

}  // namespace norvo::cli
