#pragma once

#include "host/Console.h"
#include "host/migrate/Move.h"
#include "host/migrate/RestoreLedger.h"
#include "services/Component.h"

namespace norvo::host {

/// Lets the new machine's queue restore the neutral files that its ledger does not know yet, and
/// notes in the move what became of its playlists. Gives the number of other neutral files that
/// were found in the documents folder and restored.
std::size_t RestoreCarried(Component& library, RestoreLedger& ledger, Move& move, Console& console);

}  // namespace norvo::host
