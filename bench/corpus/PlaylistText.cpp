#include "PlaylistText.h"

namespace norvo::bench {
namespace {

std::string MakeTitle(const Song& song) {
  return song.artist + " - " + song.title;
}

std::string MakeWinampM3u(const std::vector<const Song*>& songs) {
  std::string text = "#EXTM3U\r\n";
  for (const Song* song : songs) {
    text += "#EXTINF:" + std::to_string(song->seconds) + ',' + MakeTitle(*song) + "\r\n";
    text += song->MachinePath() + "\r\n";
  }
  return text;
}

std::string MakeWinampPls(const std::vector<const Song*>& songs) {
  std::string text = "[playlist]\r\n";
  for (std::size_t index = 0; index < songs.size(); ++index) {
    const Song& song = *songs[index];
    const std::string number = std::to_string(index + 1);
    text += "File" + number + '=' + song.MachinePath() + "\r\n";
    text += "Title" + number + '=' + MakeTitle(song) + "\r\n";
    text += "Length" + number + '=' + std::to_string(song.seconds) + "\r\n";
  }
  return text + "NumberOfEntries=" + std::to_string(songs.size()) + "\r\nVersion=2\r\n";
}

std::string MakeMusicMatch(const std::vector<const Song*>& songs) {
  std::string text;
  for (const Song* song : songs) text += song->MachinePath() + "\r\n";
  return text;
}

}  // namespace

std::string MakePlaylistText(PlaylistKind kind, const std::vector<const Song*>& songs) {
  switch (kind) {
    case PlaylistKind::kWinampPls:
      return MakeWinampPls(songs);
    case PlaylistKind::kMusicMatch:
      return MakeMusicMatch(songs);
    case PlaylistKind::kWinampM3u:
      break;
  }
  return MakeWinampM3u(songs);
}

}  // namespace norvo::bench
