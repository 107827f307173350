#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "move/PlayerSetting.h"
#include "text/Text.h"

namespace norvo {

/// How a move was asked for.
struct MoveTerms {
  std::string from;
  std::string to;
  bool trial = false;
  bool withMedia = true;
};

/// A media file of the old machine that some playlist names, and its one place on the new one.
struct Song {
  enum class State { Planned, Copied, Linked, AlreadyThere, LeftOut };

  String source;
  double size = 0;  ///< bytes
  String place;     ///< empty when there is none
  State state = State::Planned;
  std::string reason;  ///< why it was left out
};

/// What one item of a playlist refers to: a song, by its 0-based number, else an address that stays
/// as it is.
struct MovedItem {
  std::optional<std::size_t> song;
  String address;
};

/// One playlist on its way.
struct MovedPlaylist {
  enum class State {
    Collected,        ///< on the old machine
    Restored,         ///< by this run
    AlreadyRestored,  ///< by an earlier one
    NoSongs,          ///< it lists nothing that exists
    LeftOut
  };

  String source;
  std::int32_t type = 0;
  State state = State::Collected;
  std::string reason;               ///< why it was left out
  std::vector<std::string> healed;  ///< what was mended, and how
  std::vector<std::string> missed;  ///< what it lists and could not be taken along, and why
  String neutral;                   ///< its neutral file on the old machine
  std::vector<MovedItem> items;
  std::string key;              ///< by which the new machine knows it again
  String carried;               ///< its neutral file on the new machine
  std::string carriedBytes;     ///< what stands in there
  std::vector<String> natives;  ///< the playlists made of it
};

/// A change of what a carried neutral file says.
struct Adjustment {
  enum class Kind {
    Changed,
    FilledIn  ///< a relative reference gives no file name
  };

  std::size_t playlist = 0;  ///< 0-based
  std::size_t entry = 0;     ///< 1-based; 0 for the playlist itself
  String key;
  String before;
  String after;
  std::string reason;
  Kind kind = Kind::Changed;
};

/// A whole move: what was found, what becomes of it.
struct Move {
  std::vector<MovedPlaylist> playlists;
  std::vector<Song> songs;
  std::vector<Adjustment> adjustments;
  std::vector<PlayerSetting> settings;
  std::size_t checked = 0;  ///< local references of native playlists that were looked up
  std::size_t found = 0;    ///< and lead to the right file
};

/// "restored", "copied", "alreadyThere" and so on, as the document has them.
const char* NameOf(MovedPlaylist::State state);
const char* NameOf(Song::State state);
/// Items of a playlist that are songs.
std::size_t CountSongs(const MovedPlaylist& playlist);
/// Playlists in that state.
std::size_t CountOf(const Move& move, MovedPlaylist::State state);
/// Playlists of which something was mended.
std::size_t CountHealed(const Move& move);

}  // namespace norvo
