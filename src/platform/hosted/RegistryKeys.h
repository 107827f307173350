#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "services/Registry.h"
#include "text/PositionTable.h"
#include "text/Text.h"

namespace norvo {

/// The tree of a registry's keys, each known by a number. An exported registry has hundreds of
/// thousands: a key takes 30 to 40 bytes, and its name none where the text that it stands in is
/// kept. Names are matched without regard to case.
class RegistryKeys {
 public:
  RegistryKeys();

  /// The key itself, by its path below the hive; an empty path is the hive. Nothing for a key that
  /// is not there.
  std::optional<std::size_t> Find(Hive hive, StringView path) const;
  /// Adds the key, and those above it, which exist with it. The path's text must outlive this.
  std::size_t AddViewed(Hive hive, StringView path);
  /// The same; the names are copied.
  std::size_t AddCopied(Hive hive, StringView path);

  /// Numbers run from 0 to one less than that.
  std::size_t Count() const { return keys_.size(); }

 private:
  struct Key {
    StringView name;
    std::uint32_t above = 0;  // number of the key that it is below
  };

  static std::size_t RootOf(Hive hive) { return static_cast<std::size_t>(hive); }
  std::uint64_t HashOf(std::size_t above, StringView name) const;
  std::optional<std::size_t> FindBelow(std::size_t above, StringView name) const;
  std::size_t AddBelow(std::size_t above, StringView name);

  std::vector<Key> keys_;  // the hives first
  PositionTable byName_;
  std::deque<String> copies_;
};

/// Takes the first name off a key's path.
StringView TakeKeyName(StringView& path);

}  // namespace norvo
