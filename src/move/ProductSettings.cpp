#include "move/ProductSettings.h"

#include "move/MoveError.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"

namespace norvo {

ProductSettings ReadProductSettings(Component& component) {
  const String base = component.Machine().Product().BaseKey() + u"\\KVS";
  ProductSettings settings;
  RegistryKey key(component.Machine().Registry());
  std::int32_t role = 0;
  if (key.Open(base) && key.Read(u"mode", role)) settings.role = role;
  if (key.Open(base + u"\\" + String(DataCop::kGroup))) {
    key.Read(u"SubGroupRootName", settings.groupRoot);
  }
  return settings;
}

ProductSettings RequireProductSettings(Component& component) {
  ProductSettings settings = ReadProductSettings(component);
  const bool rootMissing = settings.groupRoot.empty();
  if (!settings.role) {
    throw MoveError(rootMissing ? MoveFault::RoleAndGroupRootMissing : MoveFault::RoleMissing);
  }
  if (rootMissing) throw MoveError(MoveFault::GroupRootMissing);
  if (*settings.role == Utility::role::kNeither) throw MoveError(MoveFault::RoleTakesNoPart);
  return settings;
}

String DataAreaOf(const ProductSettings& settings) {
  return DataArea(settings.groupRoot);
}

}  // namespace norvo
