#pragma once

#include "move/MoveResult.h"

namespace norvo::cli {

/// A move that never took place, put together row by row.
struct MadeMove {
  MoveResult result;

  MovedSong& AddSong(StringView source, StringView place, double size = 5.3e6,
                     MovedSong::State state = MovedSong::State::Copied) {
    MovedSong& song = result.songs.emplace_back();
    song.source = source;
    song.place = place;
    song.size = size;
    song.state = state;
    return song;
  }
  /// A playlist of the songs with these numbers.
  MovedPlaylist& AddList(StringView source, const std::vector<std::size_t>& songs,
                         MovedPlaylist::State state = MovedPlaylist::State::Restored) {
    MovedPlaylist& playlist = result.playlists.emplace_back();
    playlist.source = source;
    playlist.state = state;
    for (const std::size_t song : songs) {
      MovedItem& item = playlist.items.emplace_back();
      item.song = song;
      item.entry = playlist.items.size();
    }
    return playlist;
  }
  /// What the playlist lists and is no song of the move.
  /// The reference must outlive the move.
  static MovedItem& AddItem(MovedPlaylist& playlist, MovedItem::Fate fate, StringView reference) {
    MovedItem& item = playlist.items.emplace_back();
    item.fate = fate;
    item.reference = reference;
    item.entry = item.IsCarried() ? playlist.items.size() : 0;
    return item;
  }
};

/// One of everything that can happen.
inline MadeMove EventfulMove() {
  MadeMove move;
  move.AddSong(uR"(C:\Music\One.mp3)", uR"(C:\My Documents\Norvo Media\Music\One.mp3)");
  move.AddSong(uR"(C:\Music\Two.mp3)", uR"(C:\My Documents\Norvo Media\Music\Two (2).mp3)", 2.5e9,
               MovedSong::State::AlreadyThere);
  MovedSong& lost = move.AddSong(uR"(C:\Music\Lost.mp3)", u"", 8.1e6, MovedSong::State::LeftOut);
  lost.fault = MovedSong::Fault::NotBrought;
  lost.failure = PlaceFailure::SourceUnreadable;
  lost.systemReason = u"input/output error";

  move.AddList(uR"(C:\Music\Party.asx)", {0, 1});
  MovedPlaylist& mix = move.AddList(uR"(C:\Music\Mix.m3u)", {0, 2});
  MadeMove::AddItem(mix, MovedItem::Fate::NoSuchFile, uR"(D:\gone.mp3)");
  MovedItem& doubtful = MadeMove::AddItem(mix, MovedItem::Fate::Ambiguous, u"Song.mp3");
  doubtful.candidates = {uR"(C:\A\Song.mp3)", uR"(C:\B\Song.mp3)"};
  doubtful.candidateCount = 2;
  MadeMove::AddItem(mix, MovedItem::Fate::Address, u"http://radio.example.com/");
  MovedPlaylist& old =
      move.AddList(uR"(C:\Old\mix.M3U)", {0}, MovedPlaylist::State::AlreadyRestored);
  old.items[0].foundElsewhere = true;
  old.items[0].reference = uR"(E:\One.mp3)";
  MovedPlaylist& kpl = move.AddList(uR"(C:\Music\Late.kpl)", {}, MovedPlaylist::State::LeftOut);
  kpl.fault = MovedPlaylist::Fault::KindNotRead;
  MovedPlaylist& bin = move.AddList(uR"(C:\RECYCLED\Dc1.m3u)", {}, MovedPlaylist::State::Skipped);
  bin.rule = MovedPlaylist::SkipRule::RecycleBin;
  move.AddList(uR"(C:\Music\Nothing.pls)", {}, MovedPlaylist::State::NoSongs);
  move.AddList(uR"(C:\Music\iTunes Library.xml)", {0}).name = u"Rock";

  move.result.unlisted = {{uR"(C:\Music\Alone.mp3)", 4e6}, {uR"(C:\Music\Alone too.mp3)", 5e6}};
  move.result.adjustments = {
      {0, 1, u"FileName", u"", u"One.mp3", Adjustment::Reason::RelativeReference},
      {0, 2, u"FileName", u"Two.mp3", u"Two (2).mp3", Adjustment::Reason::OtherSong},
      {1, 0, u"OriginalFileName", u"Mix.m3u", u"Mix 2.m3u", Adjustment::Reason::NativeBlocked}};
  WorkWarning warning;
  warning.kind = WorkWarning::Kind::NativeGone;
  warning.side = MachineSide::New;
  warning.subject = uR"(C:\Mix.asx)";
  move.result.warnings = {warning};
  move.result.count = {4, 3, 9, 8};
  return move;
}

}  // namespace norvo::cli
