#include "cli/NamedMachine.h"

#include "text/Encoding.h"

namespace norvo::cli {

bool IsMachinePath(std::string_view text) {
  return text.size() >= 3 && text[1] == ':' && (text[2] == '\\' || text[2] == '/') &&
         ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

std::string BothPaths(Platform& machine, StringView path) {
  const std::string shown = ToUtf8(path);
  const std::string place = machine.SystemPathOf(path);
  return shown + (place.empty() || place == shown ? "" : " (" + place + ")");
}

}  // namespace norvo::cli
