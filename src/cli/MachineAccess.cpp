#include "cli/MachineAccess.h"

namespace norvo {

bool IsMachinePath(std::string_view text) {
  return text.size() >= 3 && text[1] == ':' && (text[2] == '\\' || text[2] == '/') &&
         ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

}  // namespace norvo
