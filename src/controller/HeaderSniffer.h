#pragma once

#include <cstdint>
#include <optional>

#include "services/Component.h"

namespace norvo {

/// Types of playlist files as their headers tell them, by the marks of model/PlaylistTypes.h; 0 for
/// a header without a mark and for a file that cannot be read.

/// By the first four lines, as in .m3u and .asx files; the first line with a mark decides.
std::int32_t TypeByLines(Component& component, StringView path);

/// By the keys of the section [playlist], as in .pls files.
std::int32_t TypeByKeys(Component& component, StringView path);

/// By the header that files with the path's extension have; by the first lines for extensions that
/// no type has.
std::int32_t TypeByHeader(Component& component, StringView path);

/// As a scan lists the file: by its extension where that alone tells, else by its header, which is
/// not looked at when `byHeader` says what it tells.
std::int32_t ListedType(Component& component, StringView path,
                        std::optional<std::int32_t> byHeader = std::nullopt);

}  // namespace norvo
