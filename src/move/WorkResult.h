#pragma once

#include <vector>

#include "move/WorkObserver.h"

namespace norvo {

/// What every call on a machine may be asked for.
struct WorkOptions {
  bool log = false;  ///< write the debug log, "VBLog.txt" in the machine's product folder
};

/// What every call on a machine gives.
struct WorkResult {
  std::vector<WorkWarning> warnings;  ///< in the order in which they came up
  String log;                         ///< path of the log on the machine; empty when none is written
  bool cancelled = false;             ///< the observer ended it; what is done stays
};

}  // namespace norvo
