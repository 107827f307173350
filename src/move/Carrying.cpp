#include "move/Carrying.h"

#include <map>
#include <set>
#include <vector>

#include "automation/RunTimeError.h"
#include "model/GenericSections.h"
#include "move/Companion.h"
#include "move/MoveError.h"
#include "move/PortableNames.h"
#include "services/NVServices.h"
#include "services/ProfileFile.h"
#include "text/Fingerprint.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kSubFolder = u"Norvo PlayLists\\";
constexpr std::size_t kLongestBase = 120;

constexpr StringView kGenericExtension = u".ini";

/// Stands for a playlist, or a part of one that was split, with its content and its songs' places.
std::string CarriedKey(const MovedPlaylist& playlist, const PlaylistDraft& draft, std::size_t part,
                       const std::vector<MovedSong>& songs) {
  std::vector<Fingerprint> fields = {FingerprintOf(playlist.source),
                                     FingerprintOf(FormatInteger(static_cast<std::int64_t>(part))),
                                     draft.content};
  for (const MovedItem& item : playlist.items) {
    if (!item.IsCarried()) continue;
    const StringView place = item.IsSong() ? songs[item.song].PlainPlace() : item.reference;
    fields.push_back(FingerprintOf(place));
  }
  return TextOf(FingerprintOf(fields));
}

class Carrier {
 public:
  Carrier(Component& library, RestoreLedger& ledger, const String& documents)
      : library_(library), ledger_(ledger), folder_(documents + String(kSubFolder)) {
    if (!library.Files().FolderExists(folder_)) return;
    for (const FolderItem& item : library.Files().ListFolder(folder_, {})) {
      there_.emplace(Fold(WithoutTrail(item.name)), item.isFolder);
    }
  }

  void Carry(MovedPlaylist& playlist, PlaylistDraft& draft) {
    playlist.carried = ledger_.CarriedFor(draft.key);
    if (playlist.carried.empty()) {
      const std::string bytes =
          EncodeSettings(draft.document.ToText(), library_.Machine().AnsiPage());
      draft.print = TextOf(FingerprintOf(bytes));
      Write(playlist, bytes);
    } else {
      SetNatives(playlist, ledger_.NativesOf(playlist.carried));
      playlist.state = MovedPlaylist::State::AlreadyRestored;
    }
    taken_.insert(Fold(playlist.carried));
  }

 private:
  /// At the first path of the name that is free or holds just these bytes.
  void Write(MovedPlaylist& playlist, const std::string& bytes) {
    const StringView name = LastComponent(playlist.collected);
    const StringView bare = name.substr(0, name.size() - kGenericExtension.size());
    const String base = bare.empty() ? u"Playlist" : PortableName(bare, nullptr, kLongestBase);
    SettingsStorage& settings = library_.Machine().Settings();
    String path = folder_ + base + String(kGenericExtension);
    for (int number = 2;; ++number) {
      if (!taken_.contains(Fold(path)) && !IsFolder(path)) {
        const std::optional<std::string> there = IsThere(path) ? settings.Read(path) : std::nullopt;
        if (!there || *there == bytes) {
          playlist.carried = path;
          if (!there) settings.Write(path, bytes);
          return;
        }
      }
      path = folder_ + base + u" (" + FormatInteger(number) + u")" + String(kGenericExtension);
    }
  }

  bool IsThere(const String& path) const { return there_.contains(Fold(LastComponent(path))); }
  bool IsFolder(const String& path) const {
    const auto found = there_.find(Fold(LastComponent(path)));
    return found != there_.end() && found->second;
  }

  Component& library_;
  RestoreLedger& ledger_;
  String folder_;
  std::map<String, bool> there_;  // names in the folder, folded; whether each is a folder
  std::set<String> taken_;        // by other playlists of this move
};

}  // namespace

void CarryGenericFiles(Component& library, RestoreLedger& ledger, MoveWork& work) {
  const String documents = NVServices::GetCSIDLPath(library, ShellFolders::kDocuments);
  if (documents.empty()) throw MoveError(MoveFault::NoDocumentsFolder);
  Carrier carrier(library, ledger, documents);
  std::map<String, std::size_t> parts;
  for (std::size_t i = 0; i < work.drafts.size(); ++i) {
    MovedPlaylist& playlist = work.result.playlists[i];
    PlaylistDraft& draft = work.drafts[i];
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    draft.key = CarriedKey(playlist, draft, parts[playlist.source]++, work.result.songs);
    try {
      carrier.Carry(playlist, draft);
    } catch (const RunTimeError& failure) {
      LeaveOut(playlist, MovedPlaylist::Fault::NotCarried, failure.Description());
    }
    const std::size_t globals = draft.document.FindSection(kGlobalSection);
    draft.originalName = draft.document.Value(globals, u"OriginalFileName").value_or(StringView());
    draft.document = {};  // nobody asks for the rest of it any more
  }
  for (PlaylistDraft& draft : work.drafts) draft.document = {};  // of those that stay behind
  work.sections = work.sections.Emptied();
}

}  // namespace norvo
