#pragma once

#include <map>
#include <memory>
#include <string>

#include "move/MovePlaylists.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {

/// The group root that a new machine gets.
inline const std::string kNewRoot = "C:\\My Documents\\Norvo Media\\";

/// Every file of a machine and its bytes, by path.
using Contents = std::map<std::string, std::string>;
Contents ContentsOf(MemoryPlatform& machine);

/// The calls by which a machine was changed, or would have been.
Lines WritesOf(const MemoryPlatform& machine);

/// A move from one machine in memory to another. The new one is empty.
struct MemoryMove {
  std::shared_ptr<MemoryPlatform> from = std::make_shared<MemoryPlatform>();
  std::shared_ptr<MemoryPlatform> to = std::make_shared<MemoryPlatform>();

  /// A song of the old machine; no two are alike.
  void AddSong(StringView path) { from->AddFile(path, "The song " + Utf8(path)); }
  /// An M3U of the old machine.
  void AddPlaylist(StringView path, const Lines& references);
  /// "C:\Music\Mix.m3u" with "One.mp3" and "C:\Music\Two.mp3".
  void AddMix();
  /// "C:\Music\Web.pls" with an address, "C:\Music\One.mp3" and a file that there is not.
  void AddWeb();

  MoveResult Run(WorkObserver& observer, const MoveOptions& options = {}) const {
    return MovePlaylists({from, to, nullptr, nullptr, {}}, options, observer);
  }
  MoveResult Run(const MoveOptions& options = {}) const {
    WorkObserver nobody;
    return Run(nobody, options);
  }
};

/// What a result tells, a line for each fact.
Lines PlaylistsIn(const MoveResult& move);
Lines SongsIn(const MoveResult& move);
Lines AdjustmentsIn(const MoveResult& move);
std::string LineOf(const MovedSong& song);
std::string LineOf(const MovedPlaylist& playlist);
std::string LineOf(const WorkWarning& warning);
Lines LinesOf(const std::vector<WorkWarning>& warnings);

}  // namespace norvo
