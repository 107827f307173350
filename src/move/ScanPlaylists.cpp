#include "move/ScanPlaylists.h"

#include "move/Collecting.h"
#include "move/OpenedLibrary.h"
#include "services/ObserverScope.h"

namespace norvo {

ScanResult ScanPlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                         WorkObserver& observer) {
  ScanResult result;
  WorkReport report(observer, result.warnings);
  OpenedLibrary library(machine, MachineSide::Old, report);
  const ProductSettings settings = RequireProductSettings(library.Get());
  if (options.log) result.log = library.StartLog();
  result.cancelled = WasCancelled([&] {
    ScanWatcher watcher(report, MachineSide::Old, WorkPhase::Collecting);
    const ObserverScope scope(library.Get(), watcher);
    Scan(library.Get(), *library.Get().Create(u"helperMan"), settings, watcher, Copies::LeftOut,
         result);
  });
  return result;
}

}  // namespace norvo
