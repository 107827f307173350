#pragma once

#include <cstdint>
#include <optional>

#include "services/Component.h"

namespace norvo {

/// The product's settings that scanning and collecting need.
struct Settings {
  std::optional<std::int32_t> role;
  String groupRoot;  ///< empty when it is missing
};

Settings ReadSettings(Component& component);

/// HostError, which names `norvo-playlists init`, when one is missing; or when the machine's role
/// takes no part in a migration.
Settings RequireSettings(Component& component);

/// Where the list file and the neutral files stand, with a trailing backslash.
String DataAreaOf(const Settings& settings);

}  // namespace norvo
