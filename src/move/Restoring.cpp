#include "move/Restoring.h"

#include <map>
#include <set>
#include <utility>

#include "automation/RunTimeError.h"
#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/LibraryWatcher.h"
#include "services/ObserverScope.h"

namespace norvo {
namespace {

/// Keeps the ledger one step ahead of the queue.
class LedgerWatcher final : public LibraryWatcher {
 public:
  LedgerWatcher(RestoreLedger& ledger, MoveWork& work)
      : LibraryWatcher(work.report, MachineSide::New, WorkPhase::Restoring),
        ledger_(ledger),
        result_(work.result) {
    for (std::size_t i = 0; i < work.drafts.size(); ++i) {
      if (work.drafts[i].key.empty()) continue;
      drafts_[Fold(work.result.playlists[i].carried)] = &work.drafts[i];
    }
  }

  /// The documents folder may hold other generic files, whose songs are not of this move.
  bool WantsGenericFile(StringView path) override {
    return drafts_.contains(Fold(path)) && !ledger_.IsRestored(String(path));
  }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    LibraryWatcher::OnPlaylistBegin(path, position, count);
    whole_ = true;
    const PlaylistDraft& draft = *drafts_.at(Fold(path));
    ledger_.Begin(String(path), draft.key, &draft.bytes);
  }
  void OnNativeFile(StringView path, std::int32_t) override {
    const bool before = std::exchange(whole_, false);  // holds when the ledger cannot be written
    ledger_.AddNative(String(path));
    whole_ = before;
  }
  void OnNativeFileEnd(StringView, bool whole) override { whole_ = whole_ && whole; }
  void OnPlaylistEnd(StringView path, std::int32_t, PlaylistOutcome, std::size_t,
                     StringView) override {
    ledger_.End(whole_);
    if (whole_) restored_.insert(Fold(path));
  }
  void OnPlayerSetting(StringView player, StringView place, StringView value) override {
    result_.settings.push_back({String(player), String(place), String(value)});
  }

  /// Whether this run has restored a generic file.
  bool HasRestored(const String& path) const { return restored_.contains(Fold(path)); }

 private:
  RestoreLedger& ledger_;
  MoveResult& result_;
  std::map<String, const PlaylistDraft*> drafts_;  // by folded generic file
  std::set<String> restored_;                      // generic files, folded
  bool whole_ = true;
};

void Settle(MovedPlaylist& playlist, RestoreLedger& ledger, const LedgerWatcher& watcher) {
  playlist.natives = ledger.NativesOf(playlist.carried);
  if (watcher.HasRestored(playlist.carried)) {
    playlist.state = MovedPlaylist::State::Restored;
  } else if (ledger.IsRestored(playlist.carried)) {
    playlist.state = MovedPlaylist::State::AlreadyRestored;
  } else {
    LeaveOut(playlist, MovedPlaylist::Fault::NotRestored);
  }
}

}  // namespace

void RestoreCarried(Component& library, RestoreLedger& ledger, MoveWork& work) {
  LedgerWatcher watcher(ledger, work);
  {
    const ObserverScope scope(library, watcher);
    RunQueue(*library.Create(u"helperMan"), queue_mode::kRestore);
  }
  try {
    ledger.Compact();
  } catch (const RunTimeError&) {
    // On a full disk it stays as it grew; only the songs' places are not remembered.
  }
  watcher.ThrowIfCancelled();
  for (MovedPlaylist& playlist : work.result.playlists) {
    if (playlist.state == MovedPlaylist::State::Collected) Settle(playlist, ledger, watcher);
  }
}

}  // namespace norvo
