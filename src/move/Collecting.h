#pragma once

#include "automation/AutomationObject.h"
#include "move/CollectPlaylists.h"
#include "move/LibraryWatcher.h"
#include "move/ProductSettings.h"
#include "services/Component.h"

namespace norvo {

/// Lets a controller scan the machine and adds what it has listed to the result. `watcher` is the
/// component's observer. MoveError when the scan does not come to its end.
void Scan(Component& library, AutomationObject& controller, const ProductSettings& settings,
          const LibraryWatcher& watcher, ScanResult& result);

/// Scans the machine and runs the queue there, by a component that is open already.
void Collect(Component& library, const ProductSettings& settings, WorkReport& report,
             CollectResult& result);

/// The same as the first step of a move. That the queue ended early is not told: what it left is
/// looked at anew afterwards.
void CollectForMove(Component& library, const ProductSettings& settings, WorkReport& report,
                    CollectResult& result);

}  // namespace norvo
