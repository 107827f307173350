#pragma once

#include <map>
#include <unordered_map>
#include <utility>

#include "services/Platform.h"

namespace norvo {

/// The registry of the machine below with the keys and values that were written since; see
/// OverlayPlatform.
class OverlayRegistry final : public Registry {
 public:
  /// `below` must outlive this.
  explicit OverlayRegistry(Platform& below) : below_(below) {}

  bool KeyExists(Hive hive, StringView key) override;
  std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) override;
  bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value) override;
  bool CreateKey(Hive hive, StringView key) override;

 private:
  using Values = std::unordered_map<String, RegistryValue, CaselessHash, CaselessEqual>;

  Platform& below_;
  std::map<std::pair<Hive, String>, Values> keys_;  // by the key in upper case
};

}  // namespace norvo
