#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "move/WorkObserver.h"
#include "move/WorkResult.h"
#include "services/Platform.h"

namespace norvo {

/// A playlist that a scan has listed.
struct ListedPlaylist {
  std::int32_t type = 0;  ///< see playlist_type
  String path;            ///< full, on the machine
};

/// A playlist that a scan has met and that is not listed.
struct SkippedPlaylist {
  /// Why.
  enum class Reason {
    UnknownType,  ///< its first lines tell no type
    Unreadable,   ///< they cannot be read
    RestoredCopy  ///< restoring or a move has made it, and nobody has changed it since
  };

  String path;                          ///< full, on the machine
  Reason reason = Reason::UnknownType;  ///< why
};

/// What a scan gives.
struct ScanResult : WorkResult {
  std::vector<ListedPlaylist> playlists;  ///< in the order in which the queue takes them
  std::vector<SkippedPlaylist> skipped;   ///< in the order of the scan, copies behind the others
  std::size_t folders = 0;                ///< that were looked into
  String listFile;                        ///< where the list stands on the machine
};

/// Finds the playlists of all fixed drives and leaves their list in the machine's data area.
/// MoveError when the machine lacks the product's settings, or the scan does not come to its end.
ScanResult ScanPlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                         WorkObserver& observer);

}  // namespace norvo
