#pragma once

#include "cli/Machine.h"
#include "cli/WorkWatcher.h"
#include "move/ListFile.h"

namespace norvo {

/// Lets the library's controller scan the machine; HostError when the scan does not come to its
/// end. The watcher is the component's observer.
std::vector<ListedPlaylist> Scan(Machine& machine, AutomationObject& controller,
                                 const Settings& settings, const WorkWatcher& watcher);

}  // namespace norvo
