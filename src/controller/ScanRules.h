#pragma once

#include <span>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Names and patterns that the walks over the drives share. Case does not matter.

bool MatchesAny(StringView name, std::span<const StringView> patterns);

/// The patterns of a comma-separated list; an empty list holds one empty pattern.
std::vector<StringView> SplitPatterns(StringView list);

/// The folders that no drive scan enters.
enum class SkippedFolder {
  None,                   ///< one that is entered
  SystemVolume,           ///< the system's own store
  RecycleBin,             ///< what was deleted
  TemporaryInternetFiles  ///< a browser's cache
};

/// What a folder of that name is; `name` is the folder's own.
SkippedFolder SkippedFolderOf(StringView name);

/// True for a folder that no drive scan enters; `name` is the folder's own.
bool IsSkippedFolder(StringView name);

}  // namespace norvo
