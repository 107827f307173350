#pragma once

#include <cstddef>

#include "move/MoveResult.h"

namespace norvo::cli {

/// So many songs of that size.
struct Amount {
  std::size_t count = 0;
  double bytes = 0;

  void Add(double size) {
    ++count;
    bytes += size;
  }
};

/// What a move adds up to.
struct MoveTotals {
  // Playlists; each is in one of these.
  std::size_t whole = 0;    ///< moved with all that they list, in this run or an earlier one
  std::size_t partly = 0;   ///< moved without something that they list
  std::size_t noSongs = 0;  ///< list nothing that exists
  std::size_t skipped = 0;  ///< stand where nothing is taken from
  std::size_t forms = 0;    ///< are other forms of those that are moved
  std::size_t notRead = 0;  ///< of a kind that only its own player reads
  std::size_t leftOut = 0;  ///< for another reason
  std::size_t waiting = 0;  ///< the move ended before them
  std::size_t before = 0;   ///< of the first two: moved by an earlier run

  // Songs; each is in one of these.
  Amount brought;       ///< copied or linked
  Amount there;         ///< stood at their places before
  Amount planned;       ///< have a place, to which they were not brought
  Amount songsLeftOut;  ///< could not be brought
  Amount unlisted;      ///< in no playlist, and left where they are
  Amount discarded;     ///< in no playlist, in recycle bins and the like

  // Entries of playlists.
  std::size_t gone = 0;       ///< lead to nothing
  std::size_t notMedia = 0;   ///< lead to a file that is no music
  std::size_t ambiguous = 0;  ///< may be one of several songs
  std::size_t elsewhere = 0;  ///< are songs that do not stand where the playlist says
};

/// Whatever the move has left undone is counted, too.
MoveTotals TotalsOf(const MoveResult& move);

}  // namespace norvo::cli
