#include "move/MoveResult.h"

#include <algorithm>

namespace norvo {
namespace {

template <class Rows, class Test>
std::size_t Count(const Rows& rows, Test&& test) {
  return static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), test));
}

}  // namespace

bool MoveResult::IsWhole() const {
  const auto isLeftOut = [](const auto& row) {
    return row.state == std::remove_cvref_t<decltype(row)>::State::LeftOut;
  };
  const auto isDoubtful = [](const MovedPlaylist& playlist) {
    return Count(playlist.items,
                 [](const MovedItem& item) { return item.fate == MovedItem::Fate::Ambiguous; }) > 0;
  };
  const auto isFault = [](const WorkWarning& warning) { return !IsNotice(warning); };
  return !cancelled && Count(warnings, isFault) == 0 && Count(playlists, isLeftOut) == 0 &&
         Count(playlists, isDoubtful) == 0 && Count(songs, isLeftOut) == 0;
}

bool IsNotice(const WorkWarning& warning) {
  return warning.kind == WorkWarning::Kind::RoleKept ||
         warning.kind == WorkWarning::Kind::GroupRootKept ||
         warning.kind == WorkWarning::Kind::TimesLost ||
         warning.kind == WorkWarning::Kind::LinkNotFollowed ||
         warning.kind == WorkWarning::Kind::LogFolderNotMade ||
         warning.kind == WorkWarning::Kind::SettingsOfUser;
}

std::size_t CountSongs(const MovedPlaylist& playlist) {
  return Count(playlist.items, [](const MovedItem& item) { return item.IsSong(); });
}

std::size_t CountMissing(const MoveResult& move, const MovedPlaylist& playlist) {
  return Count(playlist.items, [&move](const MovedItem& item) {
    return !item.IsCarried() ||
           (item.IsSong() && move.songs[item.song].state == MovedSong::State::LeftOut);
  });
}

std::size_t CountAddresses(const MovedPlaylist& playlist) {
  return Count(playlist.items,
               [](const MovedItem& item) { return item.fate == MovedItem::Fate::Address; });
}

std::size_t CountOf(const MoveResult& move, MovedPlaylist::State state) {
  return Count(move.playlists,
               [state](const MovedPlaylist& playlist) { return playlist.state == state; });
}

std::size_t CountMended(const MoveResult& move) {
  return Count(move.playlists,
               [](const MovedPlaylist& playlist) { return !playlist.mendings.empty(); });
}

}  // namespace norvo
