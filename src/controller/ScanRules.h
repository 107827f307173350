#pragma once

#include <span>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Names and patterns that the walks over the drives share. Case does not matter.

bool MatchesAny(StringView name, std::span<const StringView> patterns);

/// The patterns of a comma-separated list; an empty list holds one empty pattern.
std::vector<StringView> SplitPatterns(StringView list);

/// True for the folders that no drive scan enters: the system's own, the recycle bin, and the
/// browser's cache. `name` is the folder's own name.
bool IsSkippedFolder(StringView name);

}  // namespace norvo
