#include "move/Move.h"

#include <algorithm>

namespace norvo {

const char* NameOf(MovedPlaylist::State state) {
  switch (state) {
    case MovedPlaylist::State::Collected:
      return "collected";
    case MovedPlaylist::State::Restored:
      return "restored";
    case MovedPlaylist::State::AlreadyRestored:
      return "alreadyRestored";
    case MovedPlaylist::State::NoSongs:
      return "noSongs";
    case MovedPlaylist::State::LeftOut:
      return "leftOut";
  }
  return "";
}

const char* NameOf(Song::State state) {
  switch (state) {
    case Song::State::Planned:
      return "planned";
    case Song::State::Copied:
      return "copied";
    case Song::State::Linked:
      return "linked";
    case Song::State::AlreadyThere:
      return "alreadyThere";
    case Song::State::LeftOut:
      return "leftOut";
  }
  return "";
}

std::size_t CountSongs(const MovedPlaylist& playlist) {
  return static_cast<std::size_t>(
      std::count_if(playlist.items.begin(), playlist.items.end(),
                    [](const MovedItem& item) { return item.song.has_value(); }));
}

std::size_t CountOf(const Move& move, MovedPlaylist::State state) {
  return static_cast<std::size_t>(
      std::count_if(move.playlists.begin(), move.playlists.end(),
                    [state](const MovedPlaylist& playlist) { return playlist.state == state; }));
}

std::size_t CountHealed(const Move& move) {
  return static_cast<std::size_t>(
      std::count_if(move.playlists.begin(), move.playlists.end(),
                    [](const MovedPlaylist& playlist) { return !playlist.healed.empty(); }));
}

}  // namespace norvo
