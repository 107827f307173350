#include "platform/hosted/RegistryKeys.h"

#include <algorithm>

#include "text/HashMixer.h"

namespace norvo {
namespace {

constexpr std::size_t kHives = 3;

}  // namespace

StringView TakeKeyName(StringView& path) {
  const StringView name = path.substr(0, path.find(u'\\'));
  path.remove_prefix(std::min(name.size() + 1, path.size()));
  return name;
}

RegistryKeys::RegistryKeys() : keys_(kHives) {}

std::uint64_t RegistryKeys::HashOf(std::size_t above, StringView name) const {
  return FoldHash(MixIn(CaselessHash()(name), above));
}

std::optional<std::size_t> RegistryKeys::FindBelow(std::size_t above, StringView name) const {
  return byName_.Find(HashOf(above, name), [&](std::size_t i) {
    return keys_[i].above == above && EqualsIgnoreCase(keys_[i].name, name);
  });
}

std::size_t RegistryKeys::AddBelow(std::size_t above, StringView name) {
  const std::size_t added = keys_.size();
  byName_.Reserve(byName_.Size() + 1,
                  [this](std::size_t i) { return HashOf(keys_[i].above, keys_[i].name); });
  keys_.push_back({name, static_cast<std::uint32_t>(above)});
  byName_.Add(added, HashOf(above, name));
  return added;
}

std::optional<std::size_t> RegistryKeys::Find(Hive hive, StringView path) const {
  std::optional<std::size_t> at = RootOf(hive);
  while (at && !path.empty()) at = FindBelow(*at, TakeKeyName(path));
  return at;
}

std::size_t RegistryKeys::AddViewed(Hive hive, StringView path) {
  std::size_t at = RootOf(hive);
  while (!path.empty()) {
    const StringView name = TakeKeyName(path);
    const std::optional<std::size_t> found = FindBelow(at, name);
    at = found ? *found : AddBelow(at, name);
  }
  return at;
}

std::size_t RegistryKeys::AddCopied(Hive hive, StringView path) {
  if (const std::optional<std::size_t> found = Find(hive, path)) return *found;
  return AddViewed(hive, copies_.emplace_back(path));
}

}  // namespace norvo
