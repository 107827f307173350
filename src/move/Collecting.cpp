#include "move/Collecting.h"

#include <unordered_map>
#include <utility>

#include "automation/Conversions.h"
#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/MoveError.h"
#include "move/QueueList.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Keeps what the queue makes of each playlist, and tells it at once.
class CollectWatcher : public LibraryWatcher {
 public:
  CollectWatcher(WorkReport& report, CollectResult& result)
      : LibraryWatcher(report, MachineSide::Old, WorkPhase::Collecting), result_(result) {}

  void OnPlaylistFile(StringView path) override { result_.met.emplace_back(path); }

  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    LibraryWatcher::OnPlaylistBegin(path, position, count);
    result_.playlists.emplace_back().path = path;
  }

  void OnItem(StringView reference, ItemOutcome outcome) override {
    if (outcome == ItemOutcome::Kept) return;
    CollectedPlaylist& playlist = result_.playlists.back();
    playlist.drops.push_back({outcome, String(reference)});
    Report().Observer().OnDropped(playlist, playlist.drops.back());
  }

  void OnPlaylistEnd(StringView, std::int32_t type, PlaylistOutcome outcome, std::size_t kept,
                     StringView genericFile) override {
    CollectedPlaylist& playlist = result_.playlists.back();
    playlist.type = type;
    playlist.outcome = outcome;
    playlist.kept = kept;
    playlist.genericFile = genericFile;
    Report().Observer().OnCollected(playlist);
    if (!genericFile.empty()) NoteGenericFile(result_.playlists.size() - 1);
  }

 private:
  /// The generic file of an earlier playlist of that name is gone now.
  void NoteGenericFile(std::size_t index) {
    const auto [owner, isNew] = owners_.try_emplace(result_.playlists[index].genericFile, index);
    if (isNew) return;
    CollectedPlaylist& earlier = result_.playlists[std::exchange(owner->second, index)];
    earlier.replacedBy = index;
    Report().Observer().OnReplaced(earlier, result_.playlists[index]);
  }

  CollectResult& result_;
  std::unordered_map<String, std::size_t, CaselessHash, CaselessEqual> owners_;
};

class MoveCollectWatcher final : public CollectWatcher {
 public:
  using CollectWatcher::CollectWatcher;
  void OnWarning(const Warning& warning) override {
    if (warning.kind != WarningKind::QueueStopped) CollectWatcher::OnWarning(warning);
  }
};

template <class Watcher>
void CollectWith(Component& library, const ProductSettings& settings, WorkReport& report,
                 CollectResult& result) {
  Watcher watcher(report, result);
  const ObserverScope scope(library, watcher);
  const ObjectRef controller = library.Create(u"helperMan");
  result.dataArea = DataAreaOf(settings);
  Scan(library, *controller, settings, watcher, result.scan);
  RunQueue(*controller, queue_mode::kCollect);
  result.mediaBytes = library.MediaBytes();
  watcher.ThrowIfCancelled();
}

}  // namespace

void Scan(Component& library, AutomationObject& controller, const ProductSettings& settings,
          const LibraryWatcher& watcher, ScanResult& result) {
  const bool scanned = ToBoolean(controller.Call(u"GetAllPlaylists"));
  watcher.ThrowIfCancelled();
  if (!scanned) {
    throw MoveError(MoveFault::ScanFailed, ToUtf8(DataAreaOf(settings)),
                    ToUtf8(watcher.LastWarning()));
  }
  result.playlists = ReadQueueList(library, settings);
  result.folders = watcher.Folders();
  result.listFile = QueueListPath(settings);
}

void Collect(Component& library, const ProductSettings& settings, WorkReport& report,
             CollectResult& result) {
  CollectWith<CollectWatcher>(library, settings, report, result);
}

void CollectForMove(Component& library, const ProductSettings& settings, WorkReport& report,
                    CollectResult& result) {
  CollectWith<MoveCollectWatcher>(library, settings, report, result);
}

}  // namespace norvo
