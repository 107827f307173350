#pragma once

#include <cstddef>
#include <vector>

#include "cli/Console.h"
#include "cli/Machine.h"
#include "cli/WorkWatcher.h"
#include "move/Settings.h"

namespace norvo {

/// Figures of one collecting run.
struct CollectFigures {
  std::size_t found = 0;
  std::size_t written = 0;  ///< without those that were replaced
  std::size_t replaced = 0;
  std::size_t empty = 0;
  std::size_t notWritten = 0;
  std::size_t unknownType = 0;
  std::size_t unreadable = 0;
  std::size_t notProcessed = 0;
  std::size_t kept = 0;
  DropCounts dropped{};
  double mediaBytes = 0;
};
CollectFigures Count(const std::vector<PlaylistResult>& results, std::size_t found);

void SayCollected(const CollectFigures& figures, const std::vector<PlaylistResult>& results,
                  const Machine& machine, const Settings& settings, Console& console);
Json CollectedDocument(const CollectFigures& figures, const std::vector<PlaylistResult>& results,
                       const Machine& machine, const Settings& settings);

}  // namespace norvo
