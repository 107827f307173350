// Any bytes as a name that the program shows: nothing of it steers a terminal or becomes markup,
// and a JSON document gives it back.
#include <nlohmann/json.hpp>

#include "Fuzzing.h"
#include "cli/HtmlText.h"
#include "cli/Json.h"
#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace {

using norvo::Require;
using namespace norvo::cli;

void CheckTerminal(std::string_view bytes) {
  const std::string shown = TerminalText(bytes);
  Require(TerminalText(shown) == shown && norvo::FromUtf8(shown).has_value());
  for (const char each : shown) Require(static_cast<unsigned char>(each) >= ' ' && each != '\x7F');
  Require(DisplayWidth(shown) <= 2 * shown.size());
}

void CheckHtml(std::string_view bytes) {
  const std::string text = HtmlText(bytes);
  Require(text.find_first_of("<>\"'") == std::string::npos && norvo::FromUtf8(text).has_value());
  const std::string name = HtmlName(bytes);
  Require(name.starts_with("<bdi>") && name.ends_with("</bdi>"));
  Require(name.find_first_of("<>\"'", 5) == name.size() - 6);
}

void CheckJson(std::string_view bytes) {
  const std::string name = norvo::ToUtf8(norvo::FromUtf8Lossy(bytes));
  const std::string text = JsonText(Json{{"name", name}});
  Require(TerminalText(text.substr(0, 1)) == "{" && Json::parse(text)["name"] == name);
  for (const char each : text) Require(each == '\n' || static_cast<unsigned char>(each) >= ' ');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = norvo::AsBytes(data, size);
  CheckTerminal(bytes);
  CheckHtml(bytes);
  CheckJson(bytes);
  return 0;
}
