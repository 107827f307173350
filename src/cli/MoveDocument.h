#pragma once

#include <string>

#include "cli/Json.h"
#include "move/MoveResult.h"

namespace norvo::cli {

/// How a move was asked for.
struct MoveTerms {
  std::string from;
  std::string to;
  bool dryRun = false;
  bool withMedia = true;
  bool verbose = false;  ///< the report for people tells of each song
};

/// A move for other programs: a record per playlist, song, adjustment and setting, and the totals.
Json MoveDocument(const MoveResult& move, const MoveTerms& terms);

}  // namespace norvo::cli
