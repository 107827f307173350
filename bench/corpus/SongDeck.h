#pragma once

#include <cstddef>
#include <vector>

#include "Random.h"
#include "Song.h"

namespace norvo::bench {

/**
 * Deals songs at random; a song comes again only after all have come. So the number of
 * different songs grows with the number of entries up to the number of songs.
 */
class SongDeck {
 public:
  SongDeck(const std::vector<Song>& songs, Random& random);

  /** The next songs; none when there are no songs at all. */
  std::vector<const Song*> Deal(std::size_t count);

 private:
  const Song* DealOne();

  Random& random_;
  std::vector<const Song*> cards_;
  std::size_t dealt_ = 0;
};

}  // namespace norvo::bench
