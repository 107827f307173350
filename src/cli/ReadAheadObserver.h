#pragma once

#include "move/WorkObserver.h"
#include "readahead/ReadAhead.h"

namespace norvo::cli {

/// Reads ahead of the collecting on a machine, which must outlive this.
class ReadAheadObserver final : public WorkObserver {
 public:
  explicit ReadAheadObserver(HostedPlatform& machine) : ahead_(machine) {}

  void OnProgress(const WorkProgress& progress) override {
    if (progress.phase == WorkPhase::Collecting) ahead_.Passed(progress.position - 1);
  }

 private:
  ReadAhead ahead_;
};

}  // namespace norvo::cli
