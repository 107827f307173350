#pragma once

#include "services/Component.h"

namespace norvo {

/// Points each installed player at the folder of its restored playlists, below the destination
/// root. A player counts as installed when its program file (of Winamp, its settings file beside
/// the program) is found through the registry and exists; the others, and settings that cannot be
/// written, are skipped without a word. The folders themselves are not created.
void SetPlayerPlayListFolders(Component& component);

}  // namespace norvo
