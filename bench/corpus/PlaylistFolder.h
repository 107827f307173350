#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "PlaylistKind.h"
#include "SongDeck.h"

namespace norvo::bench {

/** What the playlist folder shall hold; the kinds take turns. */
struct PlaylistPlan {
  std::size_t playlists = 0;
  std::size_t entries = 0;
  std::vector<PlaylistKind> kinds = {PlaylistKind::kWinampM3u};
};

/** One playlist file as the machine names it. */
struct PlaylistFile {
  PlaylistKind kind;
  std::string machinePath;
};

/** Writes the playlists into the drive's folder and tells what was written, in order. */
std::vector<PlaylistFile> WritePlaylistFolder(const std::filesystem::path& drive,
                                              const PlaylistPlan& plan, SongDeck& deck);

}  // namespace norvo::bench
