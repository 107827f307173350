#include "move/Restoring.h"

#include <map>
#include <set>
#include <utility>

#include "automation/RunTimeError.h"
#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Keeps the ledger one step ahead of the queue.
class RestoreWatcher final : public Observer {
 public:
  RestoreWatcher(RestoreLedger& ledger, Move& move, Console& console)
      : ledger_(ledger), move_(move), console_(console) {
    for (const MovedPlaylist& playlist : move.playlists) {
      if (!playlist.key.empty()) keys_[Fold(playlist.carried)] = playlist.key;
    }
  }

  void OnWarning(const Warning& warning) override {
    console_.LeftOut("New machine: " + ToUtf8(warning.text));
  }
  /// The documents folder may hold other neutral files, whose songs are not of this move.
  bool WantsGenericFile(StringView path) override {
    return keys_.contains(Fold(path)) && !ledger_.IsRestored(String(path));
  }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    console_.Bar().Advance("restoring", position, count, path);
    whole_ = true;
    const auto key = keys_.find(Fold(path));
    ledger_.Begin(String(path), key == keys_.end() ? std::string() : key->second);
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
    move_.settings.push_back({String(player), String(place), String(value)});
  }

  /// The neutral files that were restored, folded.
  const std::set<String>& Restored() const { return restored_; }

 private:
  RestoreLedger& ledger_;
  Move& move_;
  Console& console_;
  std::map<String, std::string> keys_;  // of the move's playlists, by folded neutral file
  std::set<String> restored_;
  bool whole_ = true;
};

}  // namespace

void RestoreCarried(Component& library, RestoreLedger& ledger, Move& move, Console& console) {
  RestoreWatcher watcher(ledger, move, console);
  {
    const ObserverScope scope(library, watcher);
    RunQueue(*library.Create(u"helperMan"), queue_mode::kRestore);
  }
  try {
    ledger.Compact();
  } catch (const RunTimeError&) {
    // On a full disk it stays as it grew; only the songs' places are not remembered.
  }

  for (MovedPlaylist& playlist : move.playlists) {
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    playlist.natives = ledger.NativesOf(playlist.carried);
    if (watcher.Restored().contains(Fold(playlist.carried))) {
      playlist.state = MovedPlaylist::State::Restored;
    } else if (ledger.IsRestored(playlist.carried)) {
      playlist.state = MovedPlaylist::State::AlreadyRestored;
    } else {
      playlist.state = MovedPlaylist::State::LeftOut;
      playlist.reason =
          "its native playlists cannot be written: see that the new machine's disk is writable and "
          "not full, and run again";
    }
  }
}

}  // namespace norvo
