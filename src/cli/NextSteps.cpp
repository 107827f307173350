#include "cli/NextSteps.h"

#include <algorithm>

#include "automation/RunTimeError.h"
#include "cli/FolderWords.h"
#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"
#include "platform/files/DiskPath.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

/// Of a disk these are the program's own settings at least; in a machine's folder only those of
/// players are of use elsewhere. (One player has its settings in a file of its own, which is moved
/// along.) This PC has its registry.
void SayImport(const MoveResult& move, const RegistryPlace& registry, Console& console) {
  if (registry.file.empty()) return;
  const bool inRegistry =
      std::any_of(move.settings.begin(), move.settings.end(),
                  [](const PlayerSetting& setting) { return !HasDrive(setting.place); });
  const bool isOnDrive = !registry.machinePath.empty();
  if (!inRegistry && !isOnDrive) return;
  const std::string file = isOnDrive ? registry.machinePath : "registry.reg";
  if (!isOnDrive) console.Say("Next: take " + ShownPath(registry.file) + " to the new PC.");
  console.Say((isOnDrive ? "Next: on" : "On") + std::string(" the new PC, double-click ") + file +
              ", or run: reg import " + file);
}

bool IsDenial(const String& reason) {
  const StringView denied = DescriptionOf(error::kPermissionDenied);
  return EqualsIgnoreCase(StringView(reason).substr(0, denied.size()), denied);
}

/// A folder that may not be looked into, or a song that may not be read. A list that is denied may
/// as well be open in another program, of which its own line tells.
bool WasDenied(const MoveResult& move) {
  const auto isUnseen = [](const WorkWarning& warning) {
    return warning.kind == WorkWarning::Kind::Library &&
           warning.warning.kind == WarningKind::FolderNotListed && IsDenial(warning.warning.reason);
  };
  const auto isUnread = [](const MovedSong& song) {
    return song.state == MovedSong::State::LeftOut && IsDenial(song.systemReason);
  };
  return std::any_of(move.warnings.begin(), move.warnings.end(), isUnseen) ||
         std::any_of(move.songs.begin(), move.songs.end(), isUnread);
}

}  // namespace

void SayNextSteps(const MoveResult& move, const RegistryPlace& registry, Console& console) {
  SayImport(move, registry, console);
  const char* const ofOld = Words(MachineSide::Old).seeDenied;
  const char* const ofPc = *ofOld == '\0' ? Words(MachineSide::New).seeDenied : ofOld;
  if (*ofPc != '\0' && WasDenied(move)) console.Say(WithCommand(ofPc));
}

}  // namespace norvo::cli
