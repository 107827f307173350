#pragma once

#include "cli/Console.h"
#include "cli/MoveDocument.h"

namespace norvo::cli {

/// A warning of a move, in a line for people.
std::string MoveWarningText(const WorkWarning& warning);

/// Tells by name what was left out although it exists on the old machine, but for the warnings.
void TellLeftOut(const MoveResult& move, const MoveTerms& terms, Console& console);

/// The report for people: each playlist, what was changed on the way, and the totals.
void SayMove(const MoveResult& move, const MoveTerms& terms, Console& console);

}  // namespace norvo::cli
