#include "move/CollectPlaylists.h"

#include "move/Collecting.h"
#include "move/OpenedLibrary.h"

namespace norvo {

CollectResult CollectPlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer) {
  CollectResult result;
  WorkReport report(observer, result.warnings);
  const auto watched = std::make_shared<WatchedMachine>(machine);
  OpenedLibrary library(watched, MachineSide::Old, report);
  const ProductSettings settings = RequireProductSettings(library.Get());
  RequireSubNames(library.Get(), settings);
  RequireMediaList(library.Get(), settings);
  if (options.log) result.log = library.StartLog();
  result.cancelled =
      WasCancelled([&] { Collect(library.Get(), *watched, settings, report, result); });
  return result;
}

}  // namespace norvo
