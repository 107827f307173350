#pragma once

#include "cli/Console.h"
#include "move/Move.h"

namespace norvo {

/// Tells by name what was left out although it exists on the old machine.
void TellLeftOut(const Move& move, const MoveTerms& terms, Console& console);

/// The report for people: each playlist, what was changed on the way, and the totals.
void SayMove(const Move& move, const MoveTerms& terms, Console& console);

}  // namespace norvo
