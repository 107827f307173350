#pragma once

#include <filesystem>

namespace norvo {

/// In full, links followed as far as it exists, without a separator at its end.
std::filesystem::path FullPath(const std::filesystem::path& path);

/// True when the one is the other or lies below it. Both as `FullPath` gives them. On Windows case
/// of names does not matter.
bool LiesWithin(const std::filesystem::path& path, const std::filesystem::path& folder);

}  // namespace norvo
