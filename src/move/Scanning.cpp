#include "move/Scanning.h"

#include "automation/Conversions.h"

namespace norvo {

std::vector<ListedPlaylist> Scan(Machine& machine, AutomationObject& controller,
                                 const Settings& settings, const WorkWatcher& watcher) {
  if (!ToBoolean(controller.Call(u"GetAllPlaylists"))) {
    throw HostError("The scan failed. " + watcher.LastWarning() + " See that " +
                    machine.Both(DataAreaOf(settings)) + " can be written.");
  }
  return ReadListFile(machine.Library(), settings);
}

}  // namespace norvo
