#pragma once

#include <cstdint>
#include <optional>

#include "services/Component.h"

namespace norvo {

/// The product's settings that scanning and collecting need.
struct ProductSettings {
  std::optional<std::int32_t> role;  ///< see Utility::role
  String groupRoot;                  ///< empty when it is missing
};

ProductSettings ReadProductSettings(Component& component);

/// MoveError when one is missing, or when the machine's role takes no part in a migration.
ProductSettings RequireProductSettings(Component& component);

/// Where the list file and the generic files stand, with a trailing backslash.
String DataAreaOf(const ProductSettings& settings);

}  // namespace norvo
