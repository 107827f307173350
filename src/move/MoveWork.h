#pragma once

#include <string>
#include <vector>

#include "move/MoveResult.h"
#include "move/WorkReport.h"
#include "services/IniDocument.h"
#include "text/Fingerprint.h"

namespace norvo {

/// A playlist on its way, beside what the result tells of it.
struct PlaylistDraft {
  IniDocument document;  ///< its generic file, as it is going to be carried
  std::string bytes;     ///< of that file, once it is planned
  Fingerprint content;   ///< of the playlist's own file
  std::string key;       ///< by which the new machine knows it again
};

/// A move on its way.
struct MoveWork {
  MoveResult& result;
  WorkReport& report;
  std::vector<PlaylistDraft> drafts;  ///< one for each of the result's playlists
};

/// Marks a playlist as left out.
inline void LeaveOut(MovedPlaylist& playlist, MovedPlaylist::Fault fault, String reason = {}) {
  playlist.state = MovedPlaylist::State::LeftOut;
  playlist.fault = fault;
  playlist.systemReason = std::move(reason);
}

}  // namespace norvo
