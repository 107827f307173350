#pragma once

#include "services/Registry.h"

namespace norvo {

/// The machine's own registry. Texts are `REG_SZ` (read also from `REG_EXPAND_SZ`, as they stand),
/// integers `REG_DWORD`, doubles `REG_BINARY` of 8 bytes. A NUL ends every text, and no key and no
/// value has one in its name. What the system cannot tell of raises; what may not be looked at is
/// not there.
class WindowsRegistry final : public Registry {
 public:
  /// `RegOpenKeyExW`.
  bool KeyExists(Hive hive, StringView key) override;
  /// `RegQueryValueExW`.
  std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) override;
  /// `RegSetValueExW`.
  bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value) override;
  /// `RegCreateKeyExW`.
  bool CreateKey(Hive hive, StringView key) override;
};

}  // namespace norvo
