#pragma once

#include "move/MoveWork.h"
#include "move/RestoreLedger.h"
#include "services/Component.h"

namespace norvo {

/// Lets the new machine's queue restore the carried generic files that its ledger does not know
/// yet, and notes in the move what became of its playlists.
void RestoreCarried(Component& library, RestoreLedger& ledger, MoveWork& work);

}  // namespace norvo
