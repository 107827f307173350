#include "move/Restoring.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "automation/Attempt.h"
#include "controller/PlayerFolders.h"
#include "controller/QueueMode.h"
#include "model/PlaylistTypes.h"
#include "move/Companion.h"
#include "move/LibraryCalls.h"
#include "move/LibraryWatcher.h"
#include "move/RestoredCopies.h"
#include "services/DataCop.h"
#include "services/ObserverScope.h"

namespace norvo {
namespace {

/// Keeps the ledger one step ahead of the queue.
class LedgerWatcher final : public LibraryWatcher {
 public:
  LedgerWatcher(Component& library, FileSystem& disk, RestoreLedger& ledger, MoveWork& work)
      : LibraryWatcher(work.report, MachineSide::New, WorkPhase::Restoring),
        library_(library),
        disk_(disk),
        ledger_(ledger),
        work_(work),
        folder_(DataCop::GetSubNamePath(library, DataCop::kPlayListSlot)) {
    for (std::size_t i = 0; i < work.drafts.size(); ++i) {
      if (work.drafts[i].key.empty()) continue;
      numbers_[Fold(work.result.playlists[i].carried)] = i;
    }
  }

  void OnWarning(const Warning& warning) override {
    LibraryWatcher::OnWarning(warning);
    stopped_ = stopped_ || warning.kind == WarningKind::QueueStopped;
  }
  /// The documents folder may hold other generic files, whose songs are not of this move.
  bool WantsGenericFile(StringView path) override {
    return numbers_.contains(Fold(path)) && !ledger_.IsRestored(String(path));
  }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    LibraryWatcher::OnPlaylistBegin(path, position, count);
    whole_ = true;
    natives_ = 0;
    const PlaylistDraft& draft = work_.drafts[NumberOf(path)];
    ledger_.Begin(String(path), draft.key, draft.print, IntendedFor(draft));
  }
  void OnNativeFile(StringView path, std::int32_t) override {
    const bool before = std::exchange(whole_, false);  // holds when the file is not to be written
    RequireFree(path);
    ledger_.AddNative(String(path));
    whole_ = before;
    ++natives_;
  }
  void OnNativeFileEnd(StringView, bool whole) override { whole_ = whole_ && whole; }
  /// The queue goes on in silence when it cannot read a generic file, or begin a native one.
  void OnPlaylistEnd(StringView path, std::int32_t, PlaylistOutcome, std::size_t kept,
                     StringView) override {
    const MovedPlaylist& playlist = work_.result.playlists[NumberOf(path)];
    const bool all =
        kept == CountSongs(playlist) + CountAddresses(playlist) && natives_ == NativeTypes().size();
    whole_ = whole_ && all && WriteCompanion(NumberOf(path));
    ledger_.End(whole_);
    if (whole_) restored_.insert(Fold(path));
  }
  void OnPlayerSetting(StringView player, StringView place, StringView value) override {
    work_.result.settings.push_back({String(player), String(place), String(value)});
    hasPlayers_ = true;
  }

  void OnPlayerSettingLost(StringView player, StringView place, StringView value,
                           StringView reason) override {
    LibraryWatcher::OnPlayerSettingLost(player, place, value, reason);
    hasPlayers_ = true;
  }

  /// Whether the queue ended before it came to the players, or found none: where the players' lists
  /// stand may not have been known for a moment.
  bool LeavesPlayers() const { return stopped_ || !hasPlayers_; }
  /// Whether this run has restored a generic file.
  bool HasRestored(const String& path) const { return restored_.contains(Fold(path)); }

 private:
  std::size_t NumberOf(StringView path) const { return numbers_.at(Fold(path)); }

  /// What will be made of a playlist, where nothing stands in the way.
  std::vector<String> IntendedFor(const PlaylistDraft& draft) const {
    std::vector<String> intended;
    const String name = draft.originalName.substr(0, draft.originalName.find(u'.'));
    for (const PlaylistType* const type : NativeTypes()) {
      intended.push_back(folder_ + String(type->playerFolder) + u'\\' + name +
                         String(type->extension));
    }
    return AnswerOr(std::vector<String>(), [&] {
      intended.push_back(NewCompanionPath(library_, draft.originalName));
      std::erase_if(intended, [this](const String& path) { return disk_.FileExists(path); });
      return intended;
    });
  }

  /// Before anything is noted of a new list: what the ledger names is deleted after a stop.
  void RequireFree(StringView path) const {
    // When the sub-names cannot be read for a moment it would stand where no player looks.
    if (!path.starts_with(folder_)) throw RunTimeError(error::kPathNotFound);
    // Its name was chosen by a look that counts a failure as "not there".
    if (disk_.FileExists(path)) throw RunTimeError(error::kPathFileAccess);
  }

  bool WriteCompanion(std::size_t number) {
    return Attempt([&] {
      const String path = NewCompanionPath(library_, work_.drafts[number].originalName);
      RequireFree(path);
      ledger_.AddNative(path);
      library_.Machine().Settings().Write(
          path, CompanionText(work_.result.playlists[number], work_.drafts[number].seconds,
                              work_.result.songs));
    });
  }

  Component& library_;
  FileSystem& disk_;
  RestoreLedger& ledger_;
  MoveWork& work_;
  String folder_;                          // of all native playlists
  std::map<String, std::size_t> numbers_;  // of the move's playlists, by folded generic file
  std::set<String> restored_;              // generic files, folded
  std::size_t natives_ = 0;                // that were begun for the playlist in hand
  bool whole_ = true;
  bool stopped_ = false;
  bool hasPlayers_ = false;
};

/// As the queue does in the end, with the settings that cannot be written told one by one.
void PointPlayers(Component& library, LedgerWatcher& watcher) {
  const ObserverScope scope(library, watcher);
  Attempt([&] { SetPlayerPlayListFolders(library); });
}

/// Of all songs; the texts of the move outlive the ledger.
void NotePlaces(const MoveWork& work, RestoreLedger& ledger) {
  for (const SettledSong& settled : work.settled) {
    const MovedSong& song = work.result.songs[settled.song];
    ledger.LendPlace(RestoreLedger::NameOf(song.source, song.size),
                     {song.PlainPlace(), settled.artist, settled.album,
                      song.secondPlace.empty() ? StringView() : StringView(song.place)});
  }
}

void Settle(MovedPlaylist& playlist, RestoreLedger& ledger, const LedgerWatcher& watcher) {
  SetNatives(playlist, ledger.NativesOf(playlist.carried));
  if (watcher.HasRestored(playlist.carried)) {
    playlist.state = MovedPlaylist::State::Restored;
  } else if (ledger.IsRestored(playlist.carried)) {
    playlist.state = MovedPlaylist::State::AlreadyRestored;
  } else {
    LeaveOut(playlist, MovedPlaylist::Fault::NotRestored);
  }
}

}  // namespace

void RestoreCarried(Component& library, FileSystem& disk, const String& dataArea,
                    RestoreLedger& ledger, MoveWork& work) {
  LedgerWatcher watcher(library, disk, ledger, work);
  {
    const ObserverScope scope(library, watcher);
    RunQueue(*library.Create(u"helperMan"), queue_mode::kRestore);
  }
  ledger.MakeDurable();
  NotePlaces(work, ledger);
  try {
    ledger.Compact();
  } catch (const RunTimeError&) {
    // On a full disk it stays as it grew; only the songs' places are not remembered.
  }
  NoteCopies(library, dataArea, ledger.MadeLists(), MachineSide::New, work.report);
  watcher.ThrowIfCancelled();
  if (watcher.LeavesPlayers()) PointPlayers(library, watcher);
  for (MovedPlaylist& playlist : work.result.playlists) {
    if (playlist.state == MovedPlaylist::State::Collected) Settle(playlist, ledger, watcher);
  }
}

}  // namespace norvo
