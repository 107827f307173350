#pragma once

#include <string>
#include <vector>

#include "move/GenericDraft.h"
#include "move/MoveResult.h"
#include "move/SeenLists.h"
#include "move/WorkReport.h"
#include "text/Fingerprint.h"

namespace norvo {

/// What a playlist tells of an item, and once the tags are read what is known of it; or what a
/// song's tag tells. Empty and 0 for what is not told. The texts stand in the move's pool.
struct ToldDetails {
  StringView title;
  StringView artist;
  StringView album;
  StringView genre;
  int track = 0;
  double seconds = 0;
};

/// The same with the texts by their numbers in the pool: in less than half the room, since a move
/// has very many.
struct KeptDetails {
  TextPool::Id title = 0;
  TextPool::Id artist = 0;
  TextPool::Id album = 0;
  TextPool::Id genre = 0;
  int track = 0;
  double seconds = 0;

  ToldDetails In(const TextPool& texts) const {
    return {texts.Text(title),
            texts.Text(artist),
            texts.Text(album),
            texts.Text(genre),
            track,
            seconds};
  }
};

/// A playlist on its way, beside what the result tells of it.
struct PlaylistDraft {
  std::vector<KeptDetails> told;  ///< one for each of its items, until these are completed
  std::vector<double> seconds;    ///< from then on the length of each; 0: not known
  GenericDraft document;          ///< its generic file, until it is carried
  String originalName;            ///< which that file tells, of which new lists take their names
  std::string print;              ///< fingerprint of that file, once it is carried
  Fingerprint content;            ///< of the playlist's own file
  std::string key;                ///< by which the new machine knows it again
};

/// A song that has got its place, and the names of which that is computed. The texts stand in the
/// move's pool.
struct SettledSong {
  std::size_t song = 0;  ///< 0-based number among the move's songs
  StringView artist;
  StringView album;
};

/// A song whose tags could not be read.
struct UnreadTags {
  std::size_t song = 0;  ///< 0-based number among the move's songs
  String reason;
};

/// A move on its way.
struct MoveWork {
  MoveResult& result;
  WorkReport& report;
  SectionPool sections;                ///< of all generic files
  std::vector<PlaylistDraft> drafts;   ///< one for each of the result's playlists
  std::vector<KeptDetails> tags;       ///< one for each of the result's songs
  std::vector<UnreadTags> unreadTags;  ///< in the order of the songs
  std::vector<SettledSong> settled;    ///< in the order in which they were settled
  SeenLists newLists;                  ///< those that verifying has taken apart
  std::vector<String> otherNames;      ///< of songs, by which only other forms of lists know them
};

/// Marks a playlist as left out.
inline void LeaveOut(MovedPlaylist& playlist, MovedPlaylist::Fault fault, String reason = {}) {
  playlist.state = MovedPlaylist::State::LeftOut;
  playlist.fault = fault;
  playlist.systemReason = std::move(reason);
}

}  // namespace norvo
