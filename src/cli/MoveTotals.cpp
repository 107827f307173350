#include "cli/MoveTotals.h"

namespace norvo::cli {
namespace {

/// Where a playlist is counted.
std::size_t& CounterOf(const MoveResult& move, const MovedPlaylist& playlist, MoveTotals& totals) {
  switch (playlist.state) {
    case MovedPlaylist::State::Collected:
      return totals.waiting;
    case MovedPlaylist::State::NoSongs:
      return totals.noSongs;
    case MovedPlaylist::State::Skipped:
      return playlist.rule == MovedPlaylist::SkipRule::OtherForm ? totals.forms : totals.skipped;
    case MovedPlaylist::State::LeftOut:
      return playlist.fault == MovedPlaylist::Fault::KindNotRead ? totals.notRead : totals.leftOut;
    case MovedPlaylist::State::Restored:
    case MovedPlaylist::State::AlreadyRestored:
      break;
  }
  return CountMissing(move, playlist) == 0 ? totals.whole : totals.partly;
}

Amount& AmountOf(const MovedSong& song, MoveTotals& totals) {
  switch (song.state) {
    case MovedSong::State::Planned:
      return totals.planned;
    case MovedSong::State::AlreadyThere:
      return totals.there;
    case MovedSong::State::LeftOut:
      return totals.songsLeftOut;
    case MovedSong::State::Copied:
    case MovedSong::State::Linked:
      break;
  }
  return totals.brought;
}

}  // namespace

MoveTotals TotalsOf(const MoveResult& move) {
  MoveTotals totals;
  for (const MovedPlaylist& playlist : move.playlists) {
    ++CounterOf(move, playlist, totals);
    totals.before += playlist.state == MovedPlaylist::State::AlreadyRestored ? 1U : 0U;
    for (const MovedItem& item : playlist.items) {
      const bool isDoubtful = item.fate == MovedItem::Fate::Ambiguous;
      totals.ambiguous += isDoubtful ? 1U : 0U;
      totals.gone += item.fate == MovedItem::Fate::NoSuchFile ? 1U : 0U;
      totals.notMedia += item.fate == MovedItem::Fate::NotMedia ? 1U : 0U;
      totals.elsewhere += item.foundElsewhere ? 1U : 0U;
    }
  }
  for (const MovedSong& song : move.songs) AmountOf(song, totals).Add(song.size);
  for (const UnlistedSong& song : move.unlisted) {
    (song.rule == MovedPlaylist::SkipRule::None ? totals.unlisted : totals.discarded)
        .Add(song.size);
  }
  return totals;
}

}  // namespace norvo::cli
