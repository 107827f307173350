#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/Console.h"
#include "services/Component.h"

namespace norvo::host {

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

struct SetupWishes {
  std::optional<std::int32_t> role;
  std::optional<std::string> groupRoot;  ///< a full path on a drive of the machine
  bool withProductFolder = true;
};

/// What the set-up found or made, in the order of its steps.
struct SetupStep {
  std::string what;
  bool written = false;
};

/// Writes what is missing of the settings and changes nothing that is there. What is there and
/// cannot be used, or differs from the wishes, is told as left out. HostError when something cannot
/// be written.
std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, Console& console);

}  // namespace norvo::host
