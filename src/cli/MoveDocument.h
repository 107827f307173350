#pragma once

#include "cli/Json.h"
#include "move/Move.h"

namespace norvo {

/// A move for other programs: a record per playlist, song, adjustment and setting, and the totals.
Json MoveDocument(const Move& move, const MoveTerms& terms);

}  // namespace norvo
