#include "move/Collecting.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "automation/Conversions.h"
#include "controller/ListFile.h"
#include "controller/QueueMode.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/MoveError.h"
#include "move/QueueList.h"
#include "move/RestoredCopies.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Keeps what the queue makes of each playlist, and tells it at once.
class CollectWatcher : public ScanWatcher {
 public:
  CollectWatcher(WorkReport& report, CollectResult& result)
      : ScanWatcher(report, MachineSide::Old, WorkPhase::Collecting), result_(result) {}

  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    ScanWatcher::OnPlaylistBegin(path, position, count);
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
    // A reader of settings files keeps to itself that it could not open one.
    const bool isUnread = kept == 0 && IsUnread(playlist.path);
    playlist.outcome = isUnread ? PlaylistOutcome::Unreadable : outcome;
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

/// Tells of songs that the library takes without their tags, since it cannot read them.
class TagWatcher final : public CollectWatcher {
 public:
  TagWatcher(WorkReport& report, CollectResult& result, WatchedMachine& machine)
      : CollectWatcher(report, result), machine_(machine) {}

  void OnItem(StringView reference, ItemOutcome outcome) override {
    CollectWatcher::OnItem(reference, outcome);
    const std::optional<String> reason = machine_.TakeUnread(reference);
    if (!reason) return;
    WorkWarning told;
    told.kind = WorkWarning::Kind::TagsNotRead;
    told.subject = reference;
    told.detail = *reason;
    Report().Warn(std::move(told));
  }

 private:
  WatchedMachine& machine_;
};

class MoveCollectWatcher final : public CollectWatcher {
 public:
  using CollectWatcher::CollectWatcher;
  void OnWarning(const Warning& warning) override {
    if (warning.kind != WarningKind::QueueStopped) CollectWatcher::OnWarning(warning);
  }
};

void CollectWith(Component& library, const ProductSettings& settings, CollectWatcher& watcher,
                 Copies copies, CollectResult& result) {
  const ObserverScope scope(library, watcher);
  const ObjectRef controller = library.Create(u"helperMan");
  result.dataArea = DataAreaOf(settings);
  Scan(library, *controller, settings, watcher, copies, result.scan);
  result.met = watcher.Met();
  RunQueue(*controller, queue_mode::kCollect);
  result.mediaBytes = library.MediaBytes();
  watcher.ThrowIfCancelled();
}

/// The playlists that the scan has met and not listed. It meets names without a point, too, which
/// are those of no playlists.
std::vector<SkippedPlaylist> SkippedBy(const ScanWatcher& watcher,
                                       const std::vector<ListedPlaylist>& playlists) {
  std::unordered_set<StringView> listed;
  for (const ListedPlaylist& playlist : playlists) listed.insert(playlist.path);
  std::vector<SkippedPlaylist> skipped;
  using Reason = SkippedPlaylist::Reason;
  for (const String& path : watcher.Met()) {
    if (listed.contains(path) || !IsPlayListFile(path)) continue;
    skipped.push_back({path, watcher.IsUnread(path) ? Reason::Unreadable : Reason::UnknownType});
  }
  return skipped;
}

/// Writes the list anew without them: the queue takes what stands there.
void LeaveOutCopies(Component& library, const ProductSettings& settings, ScanResult& result) {
  const RestoredCopies copies(library, DataAreaOf(settings));
  const std::size_t before = result.playlists.size();
  std::erase_if(result.playlists, [&](const ListedPlaylist& listed) {
    const bool isCopy = copies.Has(listed.path);
    if (isCopy) result.skipped.push_back({listed.path, SkippedPlaylist::Reason::RestoredCopy});
    return isCopy;
  });
  if (result.playlists.size() == before) return;
  ListFile list(library, settings.groupRoot);
  list.Restart();
  for (const ListedPlaylist& listed : result.playlists) list.Record(listed.path, listed.type);
  list.Save();
}

}  // namespace

void Scan(Component& library, AutomationObject& controller, const ProductSettings& settings,
          const ScanWatcher& watcher, Copies copies, ScanResult& result) {
  const bool scanned = ToBoolean(controller.Call(u"GetAllPlaylists"));
  watcher.ThrowIfCancelled();
  if (!scanned) {
    throw MoveError(MoveFault::ScanFailed, ToUtf8(DataAreaOf(settings)),
                    ToUtf8(watcher.LastWarning()));
  }
  result.playlists = ReadQueueList(library, settings);
  result.skipped = SkippedBy(watcher, result.playlists);
  if (copies == Copies::LeftOut) LeaveOutCopies(library, settings, result);
  result.folders = watcher.Folders();
  result.listFile = QueueListPath(settings);
}

void Collect(Component& library, WatchedMachine& machine, const ProductSettings& settings,
             WorkReport& report, CollectResult& result) {
  TagWatcher watcher(report, result, machine);
  CollectWith(library, settings, watcher, Copies::LeftOut, result);
}

void CollectForMove(Component& library, const ProductSettings& settings, WorkReport& report,
                    CollectResult& result) {
  MoveCollectWatcher watcher(report, result);
  CollectWith(library, settings, watcher, Copies::Listed, result);
}

}  // namespace norvo
