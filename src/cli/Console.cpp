#include "cli/Console.h"

#include <nlohmann/json.hpp>

#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace norvo::cli {

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

void Console::Tell(std::string_view line) {
  progress_.Clear();
  err_ << TerminalText(line) + '\n';  // in one write, as the stream is not buffered
}

void Console::Show(StringView title, StringView text) {
  Tell(title.empty() ? ToUtf8(text) : ToUtf8(title) + ": " + ToUtf8(text));
}

void Console::Write(Json document, int code) {
  progress_.Clear();
  document["leftOut"] = lines_;
  document["exitCode"] = code;
  out_ << JsonText(document);
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
