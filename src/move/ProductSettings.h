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

/// MoveError when the names of the machine's folders, "SubNames.txt", are there and cannot be read:
/// all songs would go elsewhere.
void RequireSubNames(Component& component, const ProductSettings& settings);

/// MoveError when the list of songs, "MediaList.txt", is there and cannot be read or added to: no
/// song would be taken.
void RequireMediaList(Component& component, const ProductSettings& settings);

}  // namespace norvo
