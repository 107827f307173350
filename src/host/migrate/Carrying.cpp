#include "host/migrate/Carrying.h"

#include <set>

#include "automation/RunTimeError.h"
#include "host/migrate/PortableNames.h"
#include "services/NVServices.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::host {
namespace {

constexpr std::int32_t kDocuments = 5;
constexpr StringView kSubFolder = u"Norvo PlayLists\\";
constexpr std::size_t kLongestFileName = 120;

/// The first path of the name that is free or holds just these bytes.
String PathFor(Component& library, const String& folder, const MovedPlaylist& playlist,
               const std::set<String>& taken) {
  const String name = PortableName(LastComponent(playlist.neutral), nullptr, kLongestFileName);
  String path = folder + name;
  for (int number = 2;; ++number) {
    if (!taken.contains(Fold(path))) {
      const bool occupied = library.Files().FolderExists(path);
      const auto there = occupied ? std::nullopt : library.Machine().Settings().Read(path);
      if (!occupied && (!there || *there == playlist.carriedBytes)) return path;
    }
    path = folder + NumberedName(name, number, kLongestFileName);
  }
}

}  // namespace

void CarryNeutralFiles(Component& library, Move& move) {
  const String documents = NVServices::GetCSIDLPath(library, kDocuments);
  if (documents.empty()) {
    throw HostError(
        "The new machine has no documents folder. Name one in its machine.ini, section "
        "[ShellFolders], such as 5=C:\\My Documents.");
  }
  const String folder = documents + String(kSubFolder);
  std::set<String> taken;  // by other playlists of this move
  for (MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    try {
      playlist.carried = PathFor(library, folder, playlist, taken);
      taken.insert(Fold(playlist.carried));
      SettingsStorage& settings = library.Machine().Settings();
      if (!settings.Read(playlist.carried)) settings.Write(playlist.carried, playlist.carriedBytes);
    } catch (const RunTimeError& failure) {
      playlist.state = MovedPlaylist::State::LeftOut;
      playlist.reason =
          "its neutral file cannot be written on the new machine: " + ToUtf8(failure.Description());
    }
  }
}

}  // namespace norvo::host
