#include "move/MoveVerification.h"

#include <optional>
#include <utility>
#include <vector>

#include "automation/Attempt.h"
#include "model/PlaylistTypes.h"
#include "move/NativeReading.h"

namespace norvo {
namespace {

using WorkWarningKind = WorkWarning::Kind;

class Verifier {
 public:
  Verifier(Component& library, bool withSongs, MoveWork& work)
      : library_(library),
        withSongs_(withSongs),
        result_(work.result),
        report_(work.report),
        reader_(library, work.newLists),
        rightSize_(Songs()) {}

  void Playlist(const MovedPlaylist& playlist) {
    const std::size_t wanted = NativeTypes().size();
    if (playlist.natives.size() != wanted) {
      Warn(WorkWarningKind::NativesMissing, playlist.source, {}, {}, playlist.natives.size(),
           wanted);
    }
    if (playlist.companion.empty()) Warn(WorkWarningKind::CompanionMissing, playlist.source);
    std::vector<const MovedItem*> items;
    for (const MovedItem& item : playlist.items) {
      if (item.IsCarried()) items.push_back(&item);
    }
    for (const String& native : playlist.natives) Native(items, native);
    for (const MovedItem* const item : items) {
      if (item->IsSong() || library_.Machine().AnsiPage().Fits(item->reference)) continue;
      Warn(WorkWarningKind::UntellableAddress, playlist.source, String(item->reference));
    }
  }

 private:
  std::size_t Songs() const { return result_.songs.size(); }

  void Native(const std::vector<const MovedItem*>& items, const String& native) {
    const VerifiedPlaylist found = reader_.Read(native);
    if (!found.whole && IsGone(native)) return Warn(WorkWarningKind::NativeGone, native);
    if (!found.whole || found.references.size() != items.size()) {
      Warn(WorkWarningKind::NativeIncomplete, native, {}, {}, found.references.size(),
           items.size());
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i < found.references.size()) {
        Reference(*items[i], found.references[i], native);
      } else if (items[i]->IsSong()) {
        ++result_.verification.checked;
      }
    }
  }

  bool IsGone(const String& native) {
    return AnswerOr(false, [&] { return !library_.Files().FileExists(native); });
  }

  void Reference(const MovedItem& item, const VerifiedReference& found, const String& native) {
    if (!item.IsSong()) return Address(item.reference, found, native);
    ++result_.verification.checked;
    const MovedSong& song = result_.songs[item.song];
    const bool named = EqualsIgnoreCase(found.reference, song.PlainPlace());
    const bool right =
        named && found.kind == VerifiedReference::Kind::Found && HasRightSize(item.song);
    const bool notYet = named && !withSongs_;
    if (right) {
      ++result_.verification.found;
    } else if (song.state != MovedSong::State::LeftOut && !notYet) {  // which has been told
      Warn(WorkWarningKind::WrongSong, native, found.reference, song.source);
    }
  }

  void Address(StringView address, const VerifiedReference& found, const String& native) {
    const CodePage& page = library_.Machine().AnsiPage();
    if (found.reference == page.Decode(page.Encode(address))) return;
    Warn(WorkWarningKind::ChangedAddress, native, found.reference, String(address));
  }

  /// Looked up once, however many playlists have the song.
  bool HasRightSize(std::size_t number) {
    std::optional<bool>& known = rightSize_[number];
    if (!known) {
      const MovedSong& song = result_.songs[number];
      known = AnswerOr(false, [&] {
        const std::optional<FileFacts> facts = library_.Files().FactsOf(song.PlainPlace());
        return facts && facts->size == song.size;
      });
    }
    return *known;
  }

  void Warn(WorkWarningKind kind, const String& subject, const String& detail = {},
            const String& wanted = {}, std::size_t found = 0, std::size_t expected = 0) {
    report_.Warn({kind, MachineSide::New, Warning(), subject, detail, wanted, found, expected});
  }

  Component& library_;
  bool withSongs_;
  MoveResult& result_;
  WorkReport& report_;
  NativeReader reader_;
  std::vector<std::optional<bool>> rightSize_;  // by song
};

}  // namespace

void VerifyMove(Component& library, bool withSongs, MoveWork& work) {
  Verifier verifier(library, withSongs, work);
  const std::vector<MovedPlaylist>& playlists = work.result.playlists;
  for (std::size_t i = 0; i < playlists.size(); ++i) {
    work.report.Progress(
        {WorkPhase::Verifying, i + 1, playlists.size(), 0, 0, playlists[i].source});
    const bool restored = playlists[i].state == MovedPlaylist::State::Restored ||
                          playlists[i].state == MovedPlaylist::State::AlreadyRestored;
    if (restored) verifier.Playlist(playlists[i]);
  }
}

}  // namespace norvo
