#pragma once

#include <vector>

#include "cli/Console.h"
#include "cli/MoveDocument.h"

namespace norvo::cli {

/// A warning of a move, in a line for people.
std::string MoveWarningText(const WorkWarning& warning);

/// Keeps what was left out although it exists on the old machine, so that the exit code tells;
/// names it on standard error unless the user sees the report, which names it too.
void TellLeftOut(const MoveResult& move, Console& console);

/// The report for people, in lines of at most `width` cells: each playlist and what happened to it,
/// then what went wrong, then what it all adds up to.
std::vector<StyledLine> MoveReport(const MoveResult& move, const MoveTerms& terms,
                                   std::size_t width);

}  // namespace norvo::cli
