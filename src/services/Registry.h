#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "text/Text.h"

namespace norvo {

/// Where a key path begins.
enum class Hive {
  CurrentUser,   ///< HKEY_CURRENT_USER
  LocalMachine,  ///< HKEY_LOCAL_MACHINE
  ClassesRoot    ///< HKEY_CLASSES_ROOT
};

/// A value of one of the types that the library reads and writes.
using RegistryValue = std::variant<String, std::int32_t, double>;

/// The registry. Key paths are separated by `\`; a trailing one does not matter. Names of keys and
/// values are matched without regard to case; the empty value name is the key's default value.
class Registry {
 public:
  virtual ~Registry() = default;

  /// True when there is such a key.
  virtual bool KeyExists(Hive hive, StringView key) = 0;
  /// Nothing when the key or the value is missing or of another type.
  virtual std::optional<RegistryValue> Read(Hive hive, StringView key, StringView name) = 0;
  /// Writes into a key that exists; false when it does not or cannot be written.
  virtual bool Write(Hive hive, StringView key, StringView name, const RegistryValue& value) = 0;
  /// Creates a key and those above it; true when it exists afterwards. Only the setting up of a
  /// machine calls this: opening a key never creates it.
  virtual bool CreateKey(Hive hive, StringView key) = 0;
};

/// One key, opened as the library's classes do it.
class RegistryKey {
 public:
  /// `registry` must outlive this.
  explicit RegistryKey(Registry& registry) : registry_(registry) {}

  /// Opens a key; false when there is none. Looks in the current user's hive first, then in the
  /// local machine's.
  bool Open(StringView key);
  /// The same in one hive.
  bool OpenIn(Hive hive, StringView key);

  /// @{
  /// False, with `value` as it was, when the key is not open or there is no such value of that
  /// type.
  bool Read(StringView name, String& value) const;
  bool Read(StringView name, std::int32_t& value) const;
  /// @}
  /// False when the key is not open or cannot be written.
  bool Write(StringView name, const RegistryValue& value) const;

 private:
  std::optional<RegistryValue> ReadAny(StringView name) const;

  Registry& registry_;
  std::optional<Hive> hive_;
  String key_;
};

/// @{
/// A text of the key that a plain open finds, or of a key of one hive; empty when there is none.
String ReadText(Registry& registry, StringView key, StringView name);
String ReadTextIn(Registry& registry, Hive hive, StringView key, StringView name);
/// @}

}  // namespace norvo
