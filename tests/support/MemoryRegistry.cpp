#include "support/MemoryRegistry.h"

#include <utility>

namespace norvo {
namespace {

StringView HiveName(Hive hive) {
  switch (hive) {
    case Hive::CurrentUser:
      return u"HKCU\\";
    case Hive::LocalMachine:
      return u"HKLM\\";
    case Hive::ClassesRoot:
      break;
  }
  return u"HKCR\\";
}

StringView WithoutTrailingBackslashes(StringView key) {
  while (key.ends_with(u'\\')) key.remove_suffix(1);
  return key;
}

std::pair<Hive, String> NameOf(Hive hive, StringView key) {
  return {hive, Fold(WithoutTrailingBackslashes(key))};
}

String Subject(Hive hive, StringView key) {
  return String(HiveName(hive)).append(key);
}

String Subject(Hive hive, StringView key, StringView name) {
  return Subject(hive, WithoutTrailingBackslashes(key)).append(u"\\").append(name);
}

}  // namespace

void MemoryRegistry::AddKey(Hive hive, StringView key) {
  String name = NameOf(hive, key).second;
  while (!name.empty()) {
    keys_.try_emplace({hive, name});
    const std::size_t last = name.rfind(u'\\');
    name.resize(last == String::npos ? 0 : last);
  }
}

void MemoryRegistry::Set(Hive hive, StringView key, StringView name, const RegistryValue& value) {
  AddKey(hive, key);
  keys_[NameOf(hive, key)][Fold(name)] = value;
}

bool MemoryRegistry::HasKey(Hive hive, StringView key) const {
  return keys_.contains(NameOf(hive, key));
}

std::optional<RegistryValue> MemoryRegistry::ValueOf(Hive hive, StringView key,
                                                     StringView name) const {
  const auto values = keys_.find(NameOf(hive, key));
  if (values == keys_.end()) return std::nullopt;
  const auto found = values->second.find(Fold(name));
  return found == values->second.end() ? std::nullopt : std::optional(found->second);
}

bool MemoryRegistry::KeyExists(Hive hive, StringView key) {
  calls_.Enter(u"Registry.KeyExists", Subject(hive, key));
  return HasKey(hive, key);
}

std::optional<RegistryValue> MemoryRegistry::Read(Hive hive, StringView key, StringView name) {
  calls_.Enter(u"Registry.Read", Subject(hive, key, name));
  return ValueOf(hive, key, name);
}

bool MemoryRegistry::Write(Hive hive, StringView key, StringView name, const RegistryValue& value) {
  calls_.Enter(u"Registry.Write", Subject(hive, key, name));
  if (IsRefused(hive) || !HasKey(hive, key)) return false;
  if (std::exchange(refusesNextWrite_, false)) return false;
  Set(hive, key, name, value);
  return true;
}

bool MemoryRegistry::CreateKey(Hive hive, StringView key) {
  calls_.Enter(u"Registry.CreateKey", Subject(hive, key));
  const StringView top = key.substr(0, key.find(u'\\'));
  const bool isRefused = refusesTopKeys_ && hive == Hive::LocalMachine && !HasKey(hive, top);
  if (IsRefused(hive) || isRefused) return HasKey(hive, key) && !refusesWrites_;
  AddKey(hive, key);
  return true;
}

}  // namespace norvo
