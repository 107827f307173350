#pragma once

#include "cli/Json.h"
#include "move/WorkObserver.h"
#include "services/Platform.h"

namespace norvo::cli {

/// Both forms of a path: the machine's and this system's.
Json PathDocument(Platform& machine, StringView path);
/// Adds where a log is, when one is written.
void AddLog(Json& document, const LogFile& log, const char* key = "log");

}  // namespace norvo::cli
