#pragma once

#include <string>
#include <vector>

#include "lists/SongTags.h"
#include "move/MoveResult.h"
#include "move/WorkReport.h"
#include "services/IniDocument.h"
#include "text/Fingerprint.h"

namespace norvo {

/// What a playlist tells of an item, and once the tags are read what is known of it; empty and 0
/// for what is not.
struct ToldDetails {
  String title;
  String artist;
  String album;
  String genre;
  int track = 0;
  double seconds = 0;
};

/// A playlist on its way, beside what the result tells of it.
struct PlaylistDraft {
  std::vector<ToldDetails> told;  ///< one for each of its items
  IniDocument document;           ///< its generic file, as it is going to be carried
  std::string bytes;              ///< of that file, once it is planned
  Fingerprint content;            ///< of the playlist's own file
  std::string key;                ///< by which the new machine knows it again
};

/// A move on its way.
struct MoveWork {
  MoveResult& result;
  WorkReport& report;
  std::vector<PlaylistDraft> drafts;  ///< one for each of the result's playlists
  std::vector<SongTags> tags;         ///< one for each of the result's songs
};

/// Marks a playlist as left out.
inline void LeaveOut(MovedPlaylist& playlist, MovedPlaylist::Fault fault, String reason = {}) {
  playlist.state = MovedPlaylist::State::LeftOut;
  playlist.fault = fault;
  playlist.systemReason = std::move(reason);
}

}  // namespace norvo
