#include "services/Registry.h"

namespace norvo {

bool RegistryKey::Open(StringView key) {
  return OpenIn(Hive::CurrentUser, key) || OpenIn(Hive::LocalMachine, key);
}

bool RegistryKey::OpenIn(Hive hive, StringView key) {
  hive_.reset();
  if (!registry_.KeyExists(hive, key)) return false;
  hive_ = hive;
  key_ = key;
  return true;
}

std::optional<RegistryValue> RegistryKey::ReadAny(StringView name) const {
  if (!hive_) return std::nullopt;
  return registry_.Read(*hive_, key_, name);
}

bool RegistryKey::Read(StringView name, String& value) const {
  std::optional<RegistryValue> found = ReadAny(name);
  String* const text = found ? std::get_if<String>(&*found) : nullptr;
  if (text == nullptr) return false;
  value = std::move(*text);
  return true;
}

bool RegistryKey::Read(StringView name, std::int32_t& value) const {
  const std::optional<RegistryValue> found = ReadAny(name);
  const std::int32_t* const number = found ? std::get_if<std::int32_t>(&*found) : nullptr;
  if (number == nullptr) return false;
  value = *number;
  return true;
}

bool RegistryKey::Write(StringView name, const RegistryValue& value) const {
  return hive_ && registry_.Write(*hive_, key_, name, value);
}

String ReadText(Registry& registry, StringView key, StringView name) {
  String value;
  RegistryKey open(registry);
  if (open.Open(key)) open.Read(name, value);
  return value;
}

String ReadTextIn(Registry& registry, Hive hive, StringView key, StringView name) {
  String value;
  RegistryKey open(registry);
  if (open.OpenIn(hive, key)) open.Read(name, value);
  return value;
}

}  // namespace norvo
