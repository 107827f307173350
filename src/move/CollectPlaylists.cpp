#include "move/CollectPlaylists.h"

#include "move/Collecting.h"
#include "move/OpenedLibrary.h"

namespace norvo {

CollectResult CollectPlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer) {
  CollectResult result;
  WorkReport report(observer, result.warnings);
  OpenedLibrary library(machine, MachineSide::Old, report);
  const ProductSettings settings = RequireProductSettings(library.Get());
  if (options.log) result.log = library.StartLog();
  result.cancelled = WasCancelled([&] { Collect(library.Get(), settings, report, result); });
  return result;
}

}  // namespace norvo
