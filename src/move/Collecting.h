#pragma once

#include <optional>
#include <vector>

#include "cli/Console.h"
#include "cli/Machine.h"
#include "services/Observer.h"

namespace norvo {

/// A playlist file that the scan met, and what the queue made of it.
struct CollectedFile {
  String path;
  std::int32_t type = 0;
  bool isListed = false;                   ///< for the queue
  std::optional<PlaylistOutcome> outcome;  ///< nothing: the queue never came to its end
  String neutralFile;                      ///< empty when there is none that is its own
};

/// Scans the old machine and runs the queue there, as the collecting command does, and gives every
/// playlist file that the scan met, in its order, listed or not. HostError when the scan does not
/// come to its end.
std::vector<CollectedFile> Collect(Machine& machine, Console& console);

}  // namespace norvo
