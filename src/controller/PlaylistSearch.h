#pragma once

#include <vector>

#include "services/Component.h"

namespace norvo {

/// The component's own search for playlists, for a machine without a drive scanner.

/// Adds the playlists of a folder and its sub-folders to `found`: a folder is listed whole before
/// its sub-folders are entered. A folder that cannot be listed is logged, and the search goes on.
void GetFolders(Component& component, StringView folder, std::vector<String>& found);

/// Files below a root that match one of the comma-separated patterns. Errors are logged.
std::vector<String> SearchNow(Component& component, StringView root, StringView patternList);

/// Playlists of one drive, by `SearchNow` from its root.
std::vector<String> SearchDrive(Component& component, char16_t letter);

}  // namespace norvo
