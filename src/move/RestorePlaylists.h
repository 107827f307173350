#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "move/PlayerSetting.h"
#include "move/WorkObserver.h"
#include "move/WorkResult.h"
#include "services/Platform.h"

namespace norvo {

/// A player's playlist that was written.
struct NativePlaylist {
  String path;            ///< full, on the machine
  std::int32_t type = 0;  ///< see playlist_type
  bool whole = false;     ///< it was written to its end
  /// Lines that hold other characters than their names have, since the 8-bit page lacks those.
  std::size_t replaced = 0;
};

/// A generic file and what was made of it.
struct RestoredPlaylist {
  String genericFile;                   ///< full path on the machine
  std::int32_t type = 0;                ///< as the file tells it; may be none
  std::size_t entries = 0;              ///< that could be read
  std::vector<NativePlaylist> natives;  ///< in the order of their writing
};

/// What a restoring gives.
struct RestoreResult : WorkResult {
  std::vector<RestoredPlaylist> playlists;  ///< in the order of their restoring
  std::vector<PlayerSetting> settings;      ///< that point the players at their playlists
};

/// Turns every generic file in the machine's documents folder and below into native playlists of
/// all players, each time anew, and points the installed players at their folders. MoveError when
/// the machine lacks the product's settings.
RestoreResult RestorePlaylists(const std::shared_ptr<Platform>& machine, const WorkOptions& options,
                               WorkObserver& observer);

}  // namespace norvo
