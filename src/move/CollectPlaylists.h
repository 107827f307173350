#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "move/ScanPlaylists.h"
#include "services/Observer.h"

namespace norvo {

/// An item of a playlist that became no entry.
struct DroppedItem {
  ItemOutcome outcome = ItemOutcome::Missing;  ///< never `Kept`
  String reference;                            ///< as the reader resolved it
};

/// What became of one listed playlist.
struct CollectedPlaylist {
  String path;                             ///< full, on the machine
  std::int32_t type = 0;                   ///< see playlist_type
  std::optional<PlaylistOutcome> outcome;  ///< nothing: the queue ended before it was done
  std::size_t kept = 0;                    ///< entries
  std::vector<DroppedItem> drops;          ///< in the playlist's order
  String genericFile;                      ///< empty when none was written
  std::optional<std::size_t> replacedBy;   ///< 0-based: a later playlist with the same generic file
};

/// What a collecting gives.
struct CollectResult : WorkResult {
  ScanResult scan;          ///< what was found
  std::vector<String> met;  ///< every playlist file that the scan met, listed or not, in its order
  std::vector<CollectedPlaylist> playlists;  ///< those that the queue has begun, in its order
  double mediaBytes = 0;                     ///< in the files that entries name, repeats included
  String dataArea;  ///< where the generic files stand, with a trailing backslash
};

/// Finds the machine's playlists and writes a generic file for each. MoveError as of ScanPlaylists.
CollectResult CollectPlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer);

}  // namespace norvo
