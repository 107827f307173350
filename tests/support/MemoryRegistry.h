#pragma once

#include <map>
#include <optional>
#include <utility>

#include "services/Registry.h"
#include "support/CallLog.h"

namespace norvo {

/// A registry in memory. What tests use to set up and look at it is not counted.
class MemoryRegistry final : public Registry {
 public:
  explicit MemoryRegistry(CallLog& calls) : calls_(calls) {}

  void Set(Hive hive, StringView key, StringView name, const RegistryValue& value);
  void AddKey(Hive hive, StringView key);
  bool HasKey(Hive hive, StringView key) const;
  std::optional<RegistryValue> ValueOf(Hive hive, StringView key, StringView name) const;
  /// Every write is refused from now on.
  void RefuseWrites() { refusesWrites_ = true; }
  /// Every write to the machine's hive is, as where an administrator alone may write there.
  void RefuseMachineWrites() { refusesMachineWrites_ = true; }
  /// The next write is, and none after it, as by a failure that passes.
  void RefuseNextWrite() { refusesNextWrite_ = true; }
  /// No key is created right below the machine's hive from now on, as on Windows.
  void RefuseTopKeys() { refusesTopKeys_ = true; }

  bool KeyExists(Hive hive, StringView key) override;
  std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) override;
  bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value) override;
  bool CreateKey(Hive hive, StringView key) override;

 private:
  using KeyName = std::pair<Hive, String>;         // folded, without trailing backslashes
  using Values = std::map<String, RegistryValue>;  // by folded name

  CallLog& calls_;
  std::map<KeyName, Values> keys_;
  bool IsRefused(Hive hive) const {
    return refusesWrites_ || (refusesMachineWrites_ && hive == Hive::LocalMachine);
  }

  bool refusesWrites_ = false;
  bool refusesMachineWrites_ = false;
  bool refusesNextWrite_ = false;
  bool refusesTopKeys_ = false;
};

}  // namespace norvo
