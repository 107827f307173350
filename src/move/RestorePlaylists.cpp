#include "move/RestorePlaylists.h"

#include <utility>

#include "automation/Attempt.h"
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

/// So that a later collecting on this machine knows them. What cannot be noted is collected there.
void NoteCopies(Component& library, const ProductSettings& settings, const RestoreResult& result) {
  std::vector<String> paths;
  for (const RestoredPlaylist& playlist : result.playlists) {
    for (const NativePlaylist& native : playlist.natives) paths.push_back(native.path);
  }
  if (paths.empty()) return;
  Attempt([&] { RestoredCopies(library, DataAreaOf(settings)).Add(paths); });
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
  NoteCopies(library.Get(), settings, result);
  return result;
}

}  // namespace norvo
