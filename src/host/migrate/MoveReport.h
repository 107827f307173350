#pragma once

#include "host/Console.h"
#include "host/migrate/Move.h"

namespace norvo::host {

/// How a move was asked for.
struct MoveTerms {
  std::string from;
  std::string to;
  bool trial = false;
  bool withMedia = true;
};

/// Tells by name what was left out although it exists on the old machine.
void TellLeftOut(const Move& move, const MoveTerms& terms, Console& console);

void SayMove(const Move& move, const MoveTerms& terms, Console& console);
Json MoveDocument(const Move& move, const MoveTerms& terms);

}  // namespace norvo::host
