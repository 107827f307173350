#include "cli/PathDocument.h"

#include <nlohmann/json.hpp>

#include "text/Encoding.h"

namespace norvo::cli {

Json PathDocument(Platform& machine, StringView path) {
  return {{"machine", ToUtf8(path)}, {"system", machine.SystemPathOf(path)}};
}

void AddLog(Json& document, const LogFile& log, const char* key) {
  if (log.path.empty()) return;
  document[key] = {{"machine", ToUtf8(log.path)}, {"system", log.systemPath}};
}

}  // namespace norvo::cli
