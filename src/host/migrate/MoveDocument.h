#pragma once

#include "host/Json.h"
#include "host/migrate/Move.h"

namespace norvo::host {

/// A move for other programs: a record per playlist, song, adjustment and setting, and the totals.
Json MoveDocument(const Move& move, const MoveTerms& terms);

}  // namespace norvo::host
