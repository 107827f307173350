#include "move/RestorePlaylists.h"

#include <utility>
#include <vector>

#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/LibraryWatcher.h"
#include "move/OpenedLibrary.h"
#include "move/ProductSettings.h"
#include "move/RestoredCopies.h"
#include "move/WatchedMachine.h"
#include "services/ObserverScope.h"

namespace norvo {
namespace {

/// Keeps what the queue makes of each generic file, and tells it at once.
class RestoreWatcher final : public LibraryWatcher {
 public:
  RestoreWatcher(WorkReport& report, WatchedMachine& machine, RestoreResult& result)
      : LibraryWatcher(report, MachineSide::Old, WorkPhase::Restoring),
        machine_(machine),
        result_(result) {}

  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    LibraryWatcher::OnPlaylistBegin(path, position, count);
    result_.playlists.emplace_back().genericFile = path;
  }
  void OnNativeFile(StringView path, std::int32_t type) override {
    result_.playlists.back().natives.push_back({String(path), type, false, 0});
    replacedBefore_ = machine_.Replaced();
  }
  void OnNativeFileEnd(StringView, bool whole) override {
    NativePlaylist& native = result_.playlists.back().natives.back();
    native.whole = whole;
    native.replaced = machine_.Replaced() - replacedBefore_;
    Report().Observer().OnNative(native);
  }
  void OnPlaylistEnd(StringView, std::int32_t type, PlaylistOutcome, std::size_t entries,
                     StringView) override {
    RestoredPlaylist& playlist = result_.playlists.back();
    playlist.type = type;
    playlist.entries = entries;
    Report().Observer().OnRestored(playlist);
  }
  void OnPlayerSetting(StringView player, StringView place, StringView value) override {
    result_.settings.push_back({String(player), String(place), String(value)});
  }

 private:
  WatchedMachine& machine_;
  RestoreResult& result_;
  std::size_t replacedBefore_ = 0;
};

/// The native playlists, so that a later collecting on this machine knows them.
std::vector<MadeList> MadeLists(Component& library, const RestoreResult& result) {
  std::vector<MadeList> lists;
  for (const RestoredPlaylist& playlist : result.playlists) {
    for (const NativePlaylist& native : playlist.natives) {
      lists.push_back(AsItIs(library, native.path));
    }
  }
  return lists;
}

}  // namespace

RestoreResult RestorePlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer) {
  RestoreResult result;
  WorkReport report(observer, result.warnings);
  const auto watched = std::make_shared<WatchedMachine>(machine);
  OpenedLibrary library(watched, MachineSide::Old, report);
  const ProductSettings settings = RequireProductSettings(library.Get());
  RequireSubNames(library.Get(), settings);
  if (options.log) result.log = library.StartLog();
  result.cancelled = WasCancelled([&] {
    RestoreWatcher watcher(report, *watched, result);
    const ObserverScope scope(library.Get(), watcher);
    RunQueue(*library.Get().Create(u"helperMan"), queue_mode::kRestore);
    watcher.ThrowIfCancelled();
  });
  NoteCopies(library.Get(), DataAreaOf(settings), MadeLists(library.Get(), result),
             MachineSide::Old, report);
  return result;
}

}  // namespace norvo
