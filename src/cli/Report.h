#pragma once

#include <string>
#include <vector>

#include "cli/Console.h"
#include "cli/Machine.h"
#include "cli/WorkWatcher.h"
#include "move/PlayerSetting.h"
#include "move/Setup.h"

namespace norvo {

/// "WMP_ASX" and so on; "unknown" for a code that is none.
std::string TypeName(std::int32_t type);
/// "ASX of Windows Media Player" and so on; "unknown" for a code that is none.
std::string TypeTitle(std::int32_t type);

/// Both forms of a place: the machine's and this system's.
Json PlaceDocument(const Machine& machine, StringView machinePath);
/// Adds where the log is, when one is written.
void AddLog(Json& document, Machine& machine, const char* key = "log");
Json DropDocument(const Drop& drop);
/// Counts by reason.
Json DropCountsDocument(const DropCounts& counts);
/// "19 (15 no such file, 4 not a media file)"
std::string DropCountsText(const DropCounts& counts);

/// "WinAmp: C:\Program Files\Winamp\Winamp.ini, cwd = C:\My Documents\..."
std::string SettingText(const PlayerSetting& setting);
Json SettingsDocument(const std::vector<PlayerSetting>& settings);

/// What a set-up wrote and found.
void SaySetup(const std::vector<SetupStep>& steps, Console& console);
Json SetupDocument(const std::vector<SetupStep>& steps);

}  // namespace norvo
