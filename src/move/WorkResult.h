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
  LogFile log;                        ///< when one was wished for
  bool cancelled = false;             ///< the observer ended it; what is done stays
};

}  // namespace norvo
