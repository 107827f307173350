#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "move/CollectPlaylists.h"
#include "move/WorkObserver.h"
#include "move/WorkResult.h"
#include "services/Platform.h"

namespace norvo {

/// An entry of a playlist that the library has read.
struct ReadEntry {
  std::int32_t urlType = 0;  ///< see url_type
  String artist;             ///< empty where nothing tells it
  String title;              ///< of the song; empty where nothing tells it
  String duration;           ///< seconds, or whatever the playlist says
  double size = 0;           ///< bytes; 0 where it is not known
  String source;             ///< full path, or an address
};

/// A playlist that was read.
struct ReadResult : WorkResult {
  String path;  ///< of the playlist on the machine
  std::int32_t type =
      0;        ///< see playlist_type; 0 when its first lines tell none, and nothing was read
  String name;  ///< of the playlist
  bool whole = false;              ///< it could be read to its end
  std::vector<ReadEntry> entries;  ///< in the playlist's order
  std::vector<DroppedItem> drops;  ///< items that became no entries, in the playlist's order
};

/// Reads one playlist, by its full path on the machine, in UTF-8, with the library's own rules; as
/// one of that type, or with 0 as its first lines tell. Changes nothing on the machine but for the
/// log, and needs none of the product's settings.
ReadResult ReadPlaylist(const std::shared_ptr<Platform>& machine, const std::string& path,
                        std::int32_t type, const WorkOptions& options, WorkObserver& observer);

}  // namespace norvo
