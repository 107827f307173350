#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "move/MediaPlacer.h"
#include "move/MoveResult.h"
#include "move/WorkObserver.h"
#include "services/Platform.h"

namespace norvo {

/// How songs are brought to the new machine.
enum class MediaMode {
  Copy,  ///< each is a file of its own
  Link,  ///< where both machines are on one disk; copied elsewhere
  None   ///< they stay where they are; their places are planned all the same
};

/// What a move may be asked for.
struct MoveOptions {
  MediaMode media = MediaMode::Copy;  ///< how songs are brought
  bool allMusic = false;              ///< bring the songs that no playlist names, too
  bool dryRun = false;                ///< plan, and write nothing on the new machine
  bool log = false;  ///< write the debug log of both machines; of a dry run the old one's only
};

/// The two machines of a move.
struct MoveMachines {
  std::shared_ptr<Platform> from;  ///< the old one
  std::shared_ptr<Platform> to;    ///< the new one
  /// Brings the songs from one to the other. Without one they are read and written through the
  /// services of the two platforms, which keep no times and put the bytes under a song's name as
  /// they come: a move that is killed may then leave a part of a song.
  MediaPlacer* placer = nullptr;
  /// Gives songs on the new machine their second, plain names: from the new machine to itself.
  /// Without one they are copied there, as above.
  MediaPlacer* namer = nullptr;
  /// Group root, in UTF-8, of an old machine that has none; empty for the usual one.
  std::string groupRootOfSource;
  /// The same for the new machine.
  std::string groupRootOfTarget = {};
  /// Its usual one, where neither the machine nor `groupRootOfTarget` tells; empty for that of
  /// SetupWishes.
  std::string usualGroupRootOfTarget = {};
  /// Tells how many bytes the disk that takes this path of the new machine has room for, or nothing
  /// where it cannot be told; may be empty. Songs that need more end the move before the first is
  /// copied (MoveFault::SpaceMissing).
  std::function<std::optional<std::uint64_t>(StringView path)> freeBytes = {};
};

/// Moves the playlists of one machine to another, and their songs: collects, heals what the
/// library's own rules would lose, chooses one place for each song, carries generic files and songs
/// over, restores native playlists, points the players at them, and verifies every one.
///
/// Machines that lack the product's settings are given them. What stands on the new machine is
/// never overwritten. A move that was stopped at any moment, or that comes later once more, goes on
/// where it was. MoveError when it cannot be done at all, or RunTimeError when a machine's services
/// fail at something that nothing can be done without; everything else is in the result.
MoveResult MovePlaylists(const MoveMachines& machines, const MoveOptions& options,
                         WorkObserver& observer);

}  // namespace norvo
