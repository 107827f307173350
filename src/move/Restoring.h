#pragma once

#include "move/MoveWork.h"
#include "move/RestoreLedger.h"
#include "services/Component.h"
#include "services/FileSystem.h"

namespace norvo {

/// Lets the new machine's queue restore the carried generic files that its ledger does not know
/// yet, and notes in the move what became of its playlists, and in the data area which native
/// playlists were made. `disk` are the same files as the library's; what it says of them it must
/// have looked up anew.
void RestoreCarried(Component& library, FileSystem& disk, const String& dataArea,
                    RestoreLedger& ledger, MoveWork& work);

}  // namespace norvo
