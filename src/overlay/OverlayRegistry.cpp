#include "overlay/OverlayRegistry.h"

namespace norvo {
namespace {

String Folded(StringView key) {
  return Fold(TrimEnd(key, [](char16_t unit) { return unit == u'\\'; }));
}

std::pair<Hive, String> NameOf(Hive hive, StringView key) {
  return {hive, Folded(key)};
}

}  // namespace

bool OverlayRegistry::KeyExists(Hive hive, StringView key) {
  return keys_.contains(NameOf(hive, key)) || below_.Registry().KeyExists(hive, key);
}

std::optional<RegistryValue> OverlayRegistry::Read(Hive hive, StringView key, StringView name) {
  if (const auto values = keys_.find(NameOf(hive, key)); values != keys_.end()) {
    const auto found = values->second.find(name);
    if (found != values->second.end()) return found->second;
  }
  return below_.Registry().Read(hive, key, name);
}

bool OverlayRegistry::Write(Hive hive, StringView key, StringView name,
                            const RegistryValue& value) {
  if (!KeyExists(hive, key)) return false;
  keys_[NameOf(hive, key)].insert_or_assign(String(name), value);
  return true;
}

bool OverlayRegistry::CreateKey(Hive hive, StringView key) {
  const String name = Folded(key);
  if (name.starts_with(u'\\') || name.find(u"\\\\") != String::npos) return false;
  for (std::size_t end = 0; end != String::npos;) {
    end = name.find(u'\\', end + 1);
    keys_.try_emplace({hive, name.substr(0, end)});
  }
  return true;
}

}  // namespace norvo
