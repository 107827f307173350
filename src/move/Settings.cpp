#include "move/Settings.h"

#include "cli/Console.h"
#include "cli/SystemWords.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"

namespace norvo {

Settings ReadSettings(Component& component) {
  const String base = component.Machine().Product().BaseKey() + u"\\KVS";
  Settings settings;
  RegistryKey key(component.Machine().Registry());
  std::int32_t role = 0;
  if (key.Open(base) && key.Read(u"mode", role)) settings.role = role;
  if (key.Open(base + u"\\" + String(DataCop::kGroup))) {
    key.Read(u"SubGroupRootName", settings.groupRoot);
  }
  return settings;
}

Settings RequireSettings(Component& component) {
  Settings settings = ReadSettings(component);
  std::string missing;
  if (!settings.role) missing = "the machine's role (mode)";
  if (settings.groupRoot.empty()) {
    missing += missing.empty() ? "" : " and ";
    missing += "the group root (SubGroupRootName)";
  }
  if (!missing.empty()) {
    throw HostError("The machine's registry lacks " + missing + ". Run " + kWords.initCommand +
                    " first, or collect --init.");
  }
  if (*settings.role == Utility::role::kNeither) {
    throw HostError(
        "The machine's role (mode) is 3: it is neither source nor destination, and nothing can be "
        "listed. Set mode to 0 in " +
        std::string(kWords.registry) + ".");
  }
  return settings;
}

String DataAreaOf(const Settings& settings) {
  return DataArea(settings.groupRoot);
}

}  // namespace norvo
