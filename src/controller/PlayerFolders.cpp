#include "controller/PlayerFolders.h"

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
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

/// Each setting stands alone: an error skips it, and the watcher hears of it.
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
    Change(kWinamp, path + u", cwd", [&](const String& value) {
      ProfileFile file(component_);
      if (!file.OpenFile(path)) throw RunTimeError(error::kPathFileAccess);
      file.SelectSection(kWinamp);
      file.WriteValue(u"cwd", value);
      file.Close();
      return true;
    });
  }

 private:
  bool IsInstalled(const String& folder, StringView file) {
    return !folder.empty() && NVServices::DoesFileExist(component_, folder + String(file));
  }

  void Set(const FolderValue& setting) {
    const String place = String(setting.key) + u", " + String(setting.name);
    Change(setting.player, place, [&](const String& value) {
      RegistryKey key(component_.Machine().Registry());
      if (!key.OpenIn(setting.hive, setting.key)) return false;
      if (!key.Write(setting.name, value)) throw RunTimeError(error::kPermissionDenied, {});
      return true;
    });
  }

  /// `write` gives false for a setting that is not there, of which nobody need hear.
  template <class Write>
  void Change(StringView player, const String& place, Write&& write) {
    const String value = base_ + String(player);
    AnswerOrElse(
        [&] {
          if (write(value)) component_.Watcher().OnPlayerSetting(player, place, value);
        },
        [&](const RunTimeError& failure) {
          component_.Watcher().OnPlayerSettingLost(player, place, value, failure.Description());
        });
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
