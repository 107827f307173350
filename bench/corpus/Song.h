#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Random.h"

namespace norvo::bench {

/** One song of the corpus: what its tags say and where it lies. */
struct Song {
  std::string artist;
  std::string album;
  std::string title;
  std::string genre;
  std::size_t track = 1;
  std::size_t year = 2000;
  std::size_t seconds = 0;

  /** Parts of the path below the drive, with the given separator between and before them. */
  std::string PathBelowDrive(char separator) const;
  /** The file's path as the machine names it. */
  std::string MachinePath() const { return "C:" + PathBelowDrive('\\'); }
};

/** Songs in albums of twenty, four albums an artist; no two songs share a path. */
std::vector<Song> MakeSongs(std::size_t count, Random& random);

}  // namespace norvo::bench
