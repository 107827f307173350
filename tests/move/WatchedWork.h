#pragma once

#include <vector>

#include "move/MemoryMove.h"
#include "move/MovePlaylists.h"

namespace norvo {

/// Keeps all that it is told, and ends the work at a question of choice.
class WatchedWork final : public WorkObserver {
 public:
  static constexpr std::size_t kNever = 0;

  /// From the n-th question on the work is to end; n counts from 1.
  explicit WatchedWork(std::size_t cancelledFrom = kNever) : cancelledFrom_(cancelledFrom) {}

  struct Step {
    WorkProgress progress;
    std::string current;  // a copy: the view of it holds during the call alone
  };

  void OnProgress(const WorkProgress& progress) override {
    steps.push_back({progress, Utf8(progress.current)});
  }
  void OnWarning(const WorkWarning& warning) override { warnings.push_back(LineOf(warning)); }
  void OnLog(MachineSide side, const LogFile& log) override {
    logs.push_back((side == MachineSide::Old ? "old: " : "new: ") + Utf8(log.path));
  }
  bool IsCancelled() override { return ++questions == cancelledFrom_ || WasCancelled(); }
  void OnDropped(const CollectedPlaylist& playlist, const DroppedItem& item) override;
  void OnCollected(const CollectedPlaylist& playlist) override;
  void OnReplaced(const CollectedPlaylist& first, const CollectedPlaylist& second) override;
  void OnRestored(const RestoredPlaylist& playlist) override;
  void OnNative(const NativePlaylist& native) override;
  void OnVerified(const VerifiedPlaylist& playlist) override;
  void OnSong(const MovedSong& song) override { songs.push_back(LineOf(song)); }
  void OnPlaylist(const MovedPlaylist& playlist) override { playlists.push_back(LineOf(playlist)); }

  /// It was asked often enough.
  bool WasCancelled() const { return cancelledFrom_ != kNever && questions >= cancelledFrom_; }
  /// The steps of one phase.
  std::vector<Step> StepsOf(WorkPhase phase) const;
  /// Each phase once for each time that it began.
  std::vector<WorkPhase> Phases() const;

  std::vector<Step> steps;
  std::size_t questions = 0;
  Lines warnings;
  Lines logs;
  Lines songs;
  Lines playlists;
  Lines events;  // of the calls on one machine

 private:
  std::size_t cancelledFrom_;
};

}  // namespace norvo
