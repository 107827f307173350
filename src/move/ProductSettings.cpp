#include "move/ProductSettings.h"

#include "automation/RunTimeError.h"
#include "move/MoveError.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Tries to open a file. One that is missing will do.
template <class Open>
void RequireOpenable(const String& path, Open&& open) {
  try {
    open();
  } catch (const RunTimeError& failure) {
    const bool isMissing =
        failure.Number() == error::kFileNotFound || failure.Number() == error::kPathNotFound;
    if (isMissing) return;
    throw MoveError(MoveFault::FileInUse, ToUtf8(path), ToUtf8(failure.Description()));
  }
}

}  // namespace

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

void RequireSubNames(Component& component, const ProductSettings& settings) {
  const String path = Utility::AddBackslash(settings.groupRoot) + u"SubNames.txt";
  RequireOpenable(path, [&] { component.Files().OpenForReading(path); });
}

void RequireMediaList(Component& component, const ProductSettings& settings) {
  const String path = DataAreaOf(settings) + u"MediaList.txt";
  RequireOpenable(path, [&] {
    component.Files().OpenForReading(path);
    component.Files().OpenForAppending(path, false);
  });
}

}  // namespace norvo
