#include "controller/PlayerFolders.h"

#include "automation/Attempt.h"
#include "services/DataCop.h"
#include "services/NVServices.h"
#include "services/ProfileFile.h"
#include "services/Registry.h"
#include "services/Utility.h"

namespace norvo {
namespace {

// The players' folders are spelled otherwise here than where the playlists are written; on a disk
// that does not regard case they are the same: intended.
constexpr StringView kMusicMatch = u"MusicMatch JukeBox";
constexpr StringView kSonique = u"Sonique";
constexpr StringView kMediaPlayer = u"Windows Media Player";
constexpr StringView kWinamp = u"Winamp";

/// One value in the registry that names a player's folder.
struct FolderValue {
  StringView player;
  Hive hive;
  StringView key;
  StringView name;
};

// The two keys of the first player are independent of each other.
constexpr FolderValue kMusicMatchValues[] = {
    {kMusicMatch, Hive::LocalMachine, u"SOFTWARE\\MusicMatch\\MusicMatch Jukebox\\4.0\\MMDB_DLL",
     u"PlayList Path"},
    {kMusicMatch, Hive::LocalMachine, u"SOFTWARE\\MusicMatch\\MusicMatch Jukebox\\4.0\\MainApp",
     u"PlayListPath"},
};
constexpr FolderValue kSoniqueValues[] = {
    {kSonique, Hive::CurrentUser, u"Software\\MediaScience\\Sonique\\General Preferences 0.80",
     u"DefaultFilesDirectory"},
};
constexpr FolderValue kMediaPlayerValues[] = {
    {kMediaPlayer, Hive::CurrentUser, u"Software\\Microsoft\\MediaPlayer\\Player\\Settings",
     u"OpenDir"},
    {kMediaPlayer, Hive::CurrentUser, u"Software\\Microsoft\\MediaPlayer\\Player\\Settings",
     u"SaveAsDir"},
};

/// An error skips what is left of the setting of one player.
class Players {
 public:
  Players(Component& component, String base) : component_(component), base_(std::move(base)) {}

  void MusicMatch() {
    if (!IsInstalled(Utility::GetAppPath(component_, u"MMJB.EXE"), u"mmjb.exe")) return;
    for (const FolderValue& value : kMusicMatchValues) Set(value);
  }

  void Sonique() {
    const String folder = Utility::GetShellOpenFolder(component_, u"Sonique.File", u"Sonique.exe");
    if (!IsInstalled(folder, u"Sonique.exe")) return;
    for (const FolderValue& value : kSoniqueValues) Set(value);
  }

  void MediaPlayer() {
    if (!IsInstalled(Utility::GetAppPath(component_, u"wmplayer.exe"), u"wmplayer.exe")) return;
    for (const FolderValue& value : kMediaPlayerValues) Set(value);
  }

  /// Installed is the player whose settings file stands beside its program.
  void Winamp() {
    const String folder = Utility::GetShellOpenFolder(component_, u"Winamp.File", u"Winamp.exe");
    if (!IsInstalled(folder, u"Winamp.ini")) return;
    const String path = folder + u"Winamp.ini";
    Attempt([&] {
      ProfileFile file(component_);
      if (!file.OpenFile(path)) return;
      file.SelectSection(kWinamp);
      file.WriteValue(u"cwd", base_ + String(kWinamp));
      file.Close();
      Tell(kWinamp, path + u", cwd");
    });
  }

 private:
  bool IsInstalled(const String& folder, StringView file) {
    return !folder.empty() && NVServices::DoesFileExist(component_, folder + String(file));
  }

  void Set(const FolderValue& value) {
    Attempt([&] {
      RegistryKey key(component_.Machine().Registry());
      if (!key.OpenIn(value.hive, value.key)) return;
      if (!key.Write(value.name, base_ + String(value.player))) return;
      Tell(value.player, String(value.key) + u", " + String(value.name));
    });
  }

  void Tell(StringView player, const String& place) {
    component_.Watcher().OnPlayerSetting(player, place, base_ + String(player));
  }

  Component& component_;
  String base_;
};

}  // namespace

void SetPlayerPlayListFolders(Component& component) {
  const String base = AnswerOr(
      String(), [&] { return DataCop::GetSubNamePath(component, DataCop::kPlayListSlot); });
  if (base.empty()) return;  // without a destination root no playlist was restored
  Players players(component, base);
  players.MusicMatch();
  players.Sonique();
  players.MediaPlayer();
  players.Winamp();
}

}  // namespace norvo
