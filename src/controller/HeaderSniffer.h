#pragma once

#include <cstdint>

#include "services/Component.h"

namespace norvo {

/// Type of an .m3u or .asx file by its first four lines: 2 for "<Asx", 3 for "#EXTM3U", 6 for a
/// line that begins with a drive path, 0 for none of them or a file that cannot be read.
std::int32_t SniffM3uHeader(Component& component, StringView path);

/// Type of a .pls file: 5 with a "CachedInfo" key or without a "Version" key, 4 for version 2,
/// else 0.
std::int32_t SniffPlsHeader(Component& component, StringView path);

}  // namespace norvo
