#include "move/FinalCount.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "automation/Attempt.h"
#include "lists/ListedFile.h"
#include "lists/ReferenceFinder.h"
#include "services/TextStream.h"
#include "text/Fingerprint.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

using WorkWarningKind = WorkWarning::Kind;
using Sample = std::optional<Fingerprint>;

/// Samples of one machine's files, each taken once.
class Samples {
 public:
  explicit Samples(FileSystem& files) : files_(files) {}

  /// Nothing for a file that cannot be read.
  Sample Of(const String& path) {
    const auto [known, isNew] = known_.try_emplace(path);
    if (isNew) known->second = AnswerOr(Sample(), [&]() -> Sample { return Take(path); });
    return known->second;
  }

 private:
  Fingerprint Take(const String& path) {
    constexpr std::uint64_t kLength = 65536;
    const auto file = files_.OpenForReading(path);
    const std::uint64_t size = file->Size();
    std::vector<Fingerprint> fields = {FingerprintOf(std::to_string(size))};
    const std::uint64_t last = size - std::min(size, kLength);
    std::vector<char> bytes(static_cast<std::size_t>(kLength));
    for (const std::uint64_t at : {std::uint64_t{0}, last / 2, last}) {
      const std::size_t read = file->ReadAt(at, bytes);
      fields.push_back(FingerprintOf(std::string_view(bytes.data(), read)));
      if (last == 0) break;
    }
    return FingerprintOf(fields);
  }

  FileSystem& files_;
  std::unordered_map<String, Sample> known_;
};

class Counter {
 public:
  Counter(Component& from, Component& to, bool withSongs, MoveWork& work)
      : to_(to),
        withSongs_(withSongs),
        result_(work.result),
        report_(work.report),
        seen_(work.newLists),
        finder_(to),
        old_(from.Files()),
        new_(to.Files()),
        isWrong_(work.result.songs.size()),
        isReached_(work.result.songs.size()) {
    for (const WorkWarning& warning : result_.warnings) {
      if (warning.side == MachineSide::New) told_.insert(warning.subject);
    }
  }

  void Playlist(const MovedPlaylist& playlist) {
    ++result_.count.playlists;
    bool whole = !playlist.companion.empty() && !LacksSong(playlist);
    const Items plain = Expected(playlist, true);
    for (const String& native : playlist.natives) whole = Form(plain, native, true) && whole;
    if (!playlist.companion.empty()) {
      whole = Form(Expected(playlist, false), playlist.companion, false) && whole;
    }
    if (whole) ++result_.count.wholePlaylists;
  }

  void CountSongs() {
    for (std::size_t i = 0; withSongs_ && i < result_.songs.size(); ++i) {
      const bool isLeftOut = result_.songs[i].state == MovedSong::State::LeftOut;
      if (!isReached_[i] && !(isLeftOut && result_.songs[i].listed)) continue;
      ++result_.count.songs;
      if (!isWrong_[i] && !isLeftOut) ++result_.count.rightSongs;
    }
  }

 private:
  /// What a new form of a playlist should list.
  struct Items {
    std::vector<const MovedItem*> items;
    std::vector<Fingerprint> references;  // of the players' own lists
  };

  Items Expected(const MovedPlaylist& playlist, bool isPlain) const {
    Items expected;
    for (const MovedItem& item : playlist.items) {
      // The one for players of today leaves out what has no place.
      const bool isNowhere = item.IsSong() && result_.songs[item.song].place.empty();
      if (!item.IsCarried() || (!isPlain && isNowhere)) continue;
      expected.items.push_back(&item);
      if (!isPlain) continue;
      expected.references.push_back(FingerprintOf(
          item.IsSong() ? result_.songs[item.song].PlainPlace() : AsTold(item.reference, isPlain)));
    }
    return expected;
  }

  bool LacksSong(const MovedPlaylist& playlist) const {
    return std::any_of(playlist.items.begin(), playlist.items.end(), [this](const MovedItem& item) {
      return item.IsSong() && result_.songs[item.song].state == MovedSong::State::LeftOut;
    });
  }

  /// One of the files that a playlist has become.
  bool Form(const Items& wanted, const String& path, bool isPlain) {
    std::string bytes = BytesOf(path);
    // Without songs there is nothing more to it than what verifying has seen in these bytes.
    if (isPlain && !withSongs_ && seen_.Lists(path, bytes, wanted.references)) return true;
    const std::vector<const MovedItem*>& expected = wanted.items;
    const ListedItems found = ItemsIn(path, std::move(bytes));
    bool right = found.size() == expected.size();
    if (!right) {
      Warn(WorkWarningKind::CountedListWrong, path, {}, {}, found.size(), expected.size());
    }
    for (std::size_t i = found.size(); i < expected.size(); ++i) NoteUnreached(*expected[i]);
    for (std::size_t i = 0; i < std::min(found.size(), expected.size()); ++i) {
      const String reference = found[i].references.front();
      right = (expected[i]->IsSong() ? Song(expected[i]->song, reference, path)
                                     : Address(expected[i]->reference, reference, path, isPlain)) &&
              right;
    }
    return right;
  }

  /// Empty for a file that cannot be read.
  std::string BytesOf(const String& path) {
    return AnswerOr(std::string(),
                    [&] { return ReadWholeFile(*to_.Files().OpenForReading(path)); });
  }

  /// None of a file that is refused.
  ListedItems ItemsIn(const String& path, std::string bytes) {
    std::optional<ListedFile> file = AnswerOr(std::optional<ListedFile>(), [&] {
      return ReadListFile(LastComponent(path), std::move(bytes), to_.Machine().AnsiPage());
    });
    if (!file || file->lists.empty()) return {};
    return std::move(file->lists.front().items);
  }

  bool Song(std::size_t number, const String& reference, const String& path) {
    const MovedSong& song = result_.songs[number];
    if (!withSongs_ || song.state == MovedSong::State::LeftOut) return true;
    isReached_[number] = true;
    const FoundReference found = finder_.Find(reference, ParentFolder(path));
    // Music without an ending that tells so counts as well.
    const bool isFile =
        found.kind == FoundReference::Kind::File || found.kind == FoundReference::Kind::NotMedia;
    const bool right = isFile && IsSame(song.source, found.path);
    if (right) return true;
    isWrong_[number] = true;
    Warn(WorkWarningKind::CountedSongWrong, path, reference, song.source);
    return false;
  }

  void NoteUnreached(const MovedItem& item) {
    if (item.IsSong()) isReached_[item.song] = isWrong_[item.song] = true;
  }

  bool IsSame(const String& source, const String& place) {
    const Sample left = old_.Of(source);
    return left && left == new_.Of(place);
  }

  bool Address(StringView wanted, const String& reference, const String& path, bool isPlain) {
    if (reference == AsTold(wanted, isPlain)) return true;
    Warn(WorkWarningKind::CountedSongWrong, path, reference, String(wanted));
    return false;
  }

  /// An address as a list can tell it.
  String AsTold(StringView address, bool isPlain) const {
    const CodePage& page = to_.Machine().AnsiPage();
    return isPlain ? page.Decode(page.Encode(address)) : String(address);
  }

  void Warn(WorkWarningKind kind, const String& subject, const String& detail, const String& wanted,
            std::size_t found = 0, std::size_t expected = 0) {
    if (told_.contains(subject)) return;
    report_.Warn({kind, MachineSide::New, Warning(), subject, detail, wanted, found, expected});
  }

  Component& to_;
  bool withSongs_;
  MoveResult& result_;
  WorkReport& report_;
  const SeenLists& seen_;
  ReferenceFinder finder_;
  Samples old_;
  Samples new_;
  std::vector<bool> isWrong_;    // by song
  std::vector<bool> isReached_;  // by song
  std::set<String> told_;        // of which something was told before the count
};

bool ShouldBeThere(const MovedPlaylist& playlist) {
  return playlist.state == MovedPlaylist::State::Restored ||
         playlist.state == MovedPlaylist::State::AlreadyRestored;
}

}  // namespace

void CountAtEnd(Component& from, Component& to, bool withSongs, MoveWork& work) {
  Counter counter(from, to, withSongs, work);
  const std::vector<MovedPlaylist>& playlists = work.result.playlists;
  for (std::size_t i = 0; i < playlists.size(); ++i) {
    work.report.Progress({WorkPhase::Counting, i + 1, playlists.size(), 0, 0, playlists[i].source});
    if (ShouldBeThere(playlists[i])) counter.Playlist(playlists[i]);
  }
  counter.CountSongs();
}

}  // namespace norvo
