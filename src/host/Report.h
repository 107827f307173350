#pragma once

#include <string>
#include <vector>

#include "host/Console.h"
#include "host/ListFile.h"
#include "host/Machine.h"
#include "host/Settings.h"
#include "host/WorkWatcher.h"

namespace norvo::host {

/// "WMP_ASX" and so on; "unknown" for a code that is none.
std::string TypeName(std::int32_t type);
/// "ASX (Windows Media Player)" and so on.
std::string TypeTitle(std::int32_t type);

/// Both forms of a place: the machine's and this system's.
Json PlaceDocument(const Machine& machine, StringView machinePath);
/// Adds where the log is, when one is written.
void AddLog(Json& document, Machine& machine);
Json DropDocument(const Drop& drop);
/// Counts by reason.
Json DropCountsDocument(const DropCounts& counts);
/// "19 (15 no such file, 4 not a media file)"
std::string DropCountsText(const DropCounts& counts);

/// What a set-up wrote and found.
void SaySetup(const std::vector<SetupStep>& steps, Console& console);
Json SetupDocument(const std::vector<SetupStep>& steps);

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

}  // namespace norvo::host
