#pragma once

#include <string>
#include <vector>

#include "PlaylistKind.h"
#include "Song.h"

namespace norvo::bench {

/** The text of a playlist file of the given kind. */
std::string MakePlaylistText(PlaylistKind kind, const std::vector<const Song*>& songs);

}  // namespace norvo::bench
