#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "move/MovePlaylists.h"

namespace norvo {

/// Looks whether the songs of a move fit on the disk that takes them, before the first is copied.
/// It asks nothing where songs are not copied, or where nobody tells how much is free.
class SongSpace {
 public:
  /// Both must outlive this.
  SongSpace(const MoveMachines& machines, const MoveOptions& options)
      : machines_(machines), isAsked_(machines.freeBytes && options.media == MediaMode::Copy) {}

  /// For a machine without settings, before it is given any: another run may then still choose
  /// another place. All songs are to go below `groupRoot`, if that is new. MoveError
  /// (SpaceMissing).
  void RequireForAll(const std::vector<MovedSong>& songs, StringView groupRoot) const;
  /// For a plan: those songs that are not at their places already. MoveError as above.
  void RequireForPlanned(const std::vector<MovedSong>& songs, StringView groupRoot) const;

 private:
  std::optional<std::uint64_t> FreeAt(StringView groupRoot) const;

  const MoveMachines& machines_;
  const bool isAsked_;
};

}  // namespace norvo
