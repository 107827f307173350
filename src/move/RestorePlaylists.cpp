#include "move/RestorePlaylists.h"

#include <utility>

#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/LibraryWatcher.h"
#include "move/OpenedLibrary.h"
#include "move/ProductSettings.h"
#include "services/ObserverScope.h"

namespace norvo {
namespace {

/// Keeps what the queue makes of each generic file, and tells it at once.
class RestoreWatcher final : public LibraryWatcher {
 public:
  RestoreWatcher(WorkReport& report, RestoreResult& result)
      : LibraryWatcher(report, MachineSide::Old, WorkPhase::Restoring), result_(result) {}

  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    LibraryWatcher::OnPlaylistBegin(path, position, count);
    result_.playlists.emplace_back().genericFile = path;
  }
  void OnNativeFile(StringView path, std::int32_t type) override {
    result_.playlists.back().natives.push_back({String(path), type, false});
  }
  void OnNativeFileEnd(StringView, bool whole) override {
    NativePlaylist& native = result_.playlists.back().natives.back();
    native.whole = whole;
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
  RestoreResult& result_;
};

}  // namespace

RestoreResult RestorePlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer) {
  RestoreResult result;
  WorkReport report(observer, result.warnings);
  OpenedLibrary library(machine, MachineSide::Old, report);
  RequireProductSettings(library.Get());
  if (options.log) result.log = library.StartLog();
  result.cancelled = WasCancelled([&] {
    RestoreWatcher watcher(report, result);
    const ObserverScope scope(library.Get(), watcher);
    RunQueue(*library.Get().Create(u"helperMan"), queue_mode::kRestore);
    watcher.ThrowIfCancelled();
  });
  return result;
}

}  // namespace norvo
