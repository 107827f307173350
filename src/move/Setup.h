#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/Console.h"
#include "services/Component.h"

namespace norvo {

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
/// cannot be used, or differs from the wishes, is told as left out. A group root on another drive
/// than C takes the product's folder along, so that drive C need not be writable. HostError when
/// something cannot be written.
std::vector<SetupStep> SetUp(Component& component, const SetupWishes& wishes, Console& console);

}  // namespace norvo
