#include "move/WatchedWork.h"

#include "move/CollectPlaylists.h"
#include "move/RestorePlaylists.h"
#include "move/VerifyPlaylists.h"

namespace norvo {

void WatchedWork::OnDropped(const CollectedPlaylist& playlist, const DroppedItem& item) {
  events.push_back("dropped from " + Utf8(playlist.path) + ": " + Utf8(item.reference));
}

void WatchedWork::OnCollected(const CollectedPlaylist& playlist) {
  events.push_back("collected " + Utf8(playlist.path) + ": " + Utf8(playlist.genericFile));
}

void WatchedWork::OnReplaced(const CollectedPlaylist& first, const CollectedPlaylist& second) {
  events.push_back(Utf8(first.path) + " replaced by " + Utf8(second.path));
}

void WatchedWork::OnRestored(const RestoredPlaylist& playlist) {
  events.push_back("restored " + Utf8(playlist.genericFile));
}

void WatchedWork::OnNative(const NativePlaylist& native) {
  events.push_back("native " + Utf8(native.path) + (native.whole ? "" : ", torn"));
}

void WatchedWork::OnVerified(const VerifiedPlaylist& playlist) {
  events.push_back("verified " + Utf8(playlist.path));
}

std::vector<WatchedWork::Step> WatchedWork::StepsOf(WorkPhase phase) const {
  std::vector<Step> found;
  for (const Step& step : steps) {
    if (step.progress.phase == phase) found.push_back(step);
  }
  return found;
}

std::vector<WorkPhase> WatchedWork::Phases() const {
  std::vector<WorkPhase> phases;
  for (const Step& step : steps) {
    if (phases.empty() || phases.back() != step.progress.phase) {
      phases.push_back(step.progress.phase);
    }
  }
  return phases;
}

}  // namespace norvo
