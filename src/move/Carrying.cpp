#include "move/Carrying.h"

#include <map>
#include <set>

#include "automation/RunTimeError.h"
#include "cli/Console.h"
#include "move/PortableNames.h"
#include "services/NVServices.h"
#include "services/TextStream.h"
#include "text/Encoding.h"
#include "text/Fingerprint.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kSubFolder = u"Norvo PlayLists\\";
constexpr std::size_t kLongestBase = 120;

constexpr StringView kExtension = u".ini";

/// The first path of the name that is free or holds just these bytes.
String PathFor(Component& library, const String& folder, const MovedPlaylist& playlist,
               const std::set<String>& taken) {
  const StringView name = LastComponent(playlist.neutral);
  const StringView bare = name.substr(0, name.size() - kExtension.size());
  const String base = bare.empty() ? u"Playlist" : PortableName(bare, nullptr, kLongestBase);
  String path = folder + base + String(kExtension);
  for (int number = 2;; ++number) {
    if (!taken.contains(Fold(path))) {
      const bool occupied = library.Files().FolderExists(path);
      const auto there = occupied ? std::nullopt : library.Machine().Settings().Read(path);
      if (!occupied && (!there || *there == playlist.carriedBytes)) return path;
    }
    path = folder + base + u" (" + FormatInteger(number) + u")" + String(kExtension);
  }
}

/// Stands for a playlist, or a part of one that was split, with its content and its songs' places.
/// Earlier moves have left such keys, so the fields follow each other without a separator.
std::string KeyOf(Component& old, const MovedPlaylist& playlist, const std::vector<Song>& songs,
                  std::size_t part) {
  Fingerprint print;
  print.AddExact(playlist.source);
  print.AddExact(FormatInteger(static_cast<std::int64_t>(part)));
  print.AddBytes(ReadWholeFile(*old.Files().OpenForReading(playlist.source)));
  for (const MovedItem& item : playlist.items) {
    print.AddExact(item.song ? songs[*item.song].place : item.address);
  }
  return TextOf(print);
}

}  // namespace

void CarryNeutralFiles(Component& old, Component& library, RestoreLedger& ledger, Move& move) {
  const String documents = NVServices::GetCSIDLPath(library, ShellFolders::kDocuments);
  if (documents.empty()) {
    throw HostError(
        "The new machine has no documents folder. Name one in its machine.ini, section "
        "[ShellFolders], such as 5=C:\\My Documents.");
  }
  const String folder = documents + String(kSubFolder);
  std::set<String> taken;  // by other playlists of this move
  std::map<String, std::size_t> parts;
  for (MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    try {
      playlist.key = KeyOf(old, playlist, move.songs, parts[playlist.source]++);
      playlist.carried = ledger.CarriedFor(playlist.key);
      if (!playlist.carried.empty()) {
        playlist.natives = ledger.NativesOf(playlist.carried);
        playlist.state = MovedPlaylist::State::AlreadyRestored;
        taken.insert(Fold(playlist.carried));
        continue;
      }
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

}  // namespace norvo
