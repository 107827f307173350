#pragma once

#include "cli/Console.h"
#include "move/Move.h"
#include "move/RestoreLedger.h"
#include "services/Component.h"

namespace norvo {

/// Lets the new machine's queue restore the carried neutral files that its ledger does not know
/// yet, and notes in the move what became of its playlists.
void RestoreCarried(Component& library, RestoreLedger& ledger, Move& move, Console& console);

}  // namespace norvo
