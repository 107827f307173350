#pragma once

#include "automation/AutomationObject.h"
#include "move/CollectPlaylists.h"
#include "move/ProductSettings.h"
#include "move/ScanWatcher.h"
#include "move/WatchedMachine.h"
#include "services/Component.h"

namespace norvo {

/// What a scan does with playlists that restoring has made on this machine.
enum class Copies {
  Listed,  ///< they are listed as any others
  LeftOut  ///< they are not, unless somebody has changed them
};

/// Lets a controller scan the machine and adds what it has listed to the result. `watcher` is the
/// component's observer. MoveError when the scan does not come to its end.
void Scan(Component& library, AutomationObject& controller, const ProductSettings& settings,
          const ScanWatcher& watcher, Copies copies, ScanResult& result);

/// Scans the machine and runs the queue there, by a component that is open already. `machine` is
/// the one below the component; songs of which it notes that they cannot be read are warned of.
void Collect(Component& library, WatchedMachine& machine, const ProductSettings& settings,
             WorkReport& report, CollectResult& result);

/// The same as the first step of a move. That the queue ended early is not told: what it left is
/// looked at anew afterwards.
void CollectForMove(Component& library, const ProductSettings& settings, WorkReport& report,
                    CollectResult& result);

}  // namespace norvo
