#pragma once

#include <utility>
#include <vector>

#include "move/WorkObserver.h"

namespace norvo {

/// Ends a call that its observer has cancelled; never leaves this room.
struct WorkCancelled {};

/// Where the steps of a call tell what they do: to the caller's observer, and of warnings also to
/// the call's result.
class WorkReport {
 public:
  /// Both must outlive this.
  WorkReport(WorkObserver& observer, std::vector<WorkWarning>& warnings)
      : observer_(observer), warnings_(warnings) {}

  WorkObserver& Observer() { return observer_; }

  void Warn(WorkWarning warning) {
    warnings_.push_back(std::move(warning));
    observer_.OnWarning(warnings_.back());
  }
  /// WorkCancelled when the observer wants no more.
  void Progress(const WorkProgress& progress) {
    if (observer_.IsCancelled()) throw WorkCancelled();
    observer_.OnProgress(progress);
  }

 private:
  WorkObserver& observer_;
  std::vector<WorkWarning>& warnings_;
};

/// Runs a call's steps; true when the observer has ended them.
template <class Work>
bool WasCancelled(Work&& work) {
  try {
    work();
    return false;
  } catch (const WorkCancelled&) {
    return true;
  }
}

}  // namespace norvo
