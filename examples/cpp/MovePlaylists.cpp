// Moves the playlists and songs of one machine to another, both held in folders, and lists what was
// left out:
//   move_playlists /mnt/old-pc /mnt/new-pc
#include <norvo/machines/FolderMove.h>
#include <norvo/text/Encoding.h>

#include <exception>
#include <iostream>
#include <string>

namespace {

class Progress final : public norvo::WorkObserver {
 public:
  void OnProgress(const norvo::WorkProgress& progress) override {
    std::cerr << '\r' << progress.position << " of " << progress.count << "  "
              << norvo::ToUtf8(progress.current) << "\033[K";
  }
  void OnPlaylist(const norvo::MovedPlaylist& playlist) override {
    std::cout << norvo::ToUtf8(playlist.source) << ": " << norvo::CountSongs(playlist) << " songs, "
              << playlist.natives.size() << " new playlists\n";
  }
};

void PrintLeftOut(const norvo::MoveResult& move) {
  using norvo::ToUtf8;
  for (const norvo::MovedPlaylist& playlist : move.playlists) {
    const std::string name = ToUtf8(playlist.source);
    if (playlist.state == norvo::MovedPlaylist::State::LeftOut) {
      std::cout << "left out: the playlist " << name << '\n';
    }
    for (const norvo::MovedItem& item : playlist.items) {
      if (item.IsCarried()) continue;
      std::cout << name << " lists in vain: " << ToUtf8(item.reference) << '\n';
    }
  }
  for (const norvo::MovedSong& song : move.songs) {
    if (song.state != norvo::MovedSong::State::LeftOut) continue;
    std::cout << "left out: the song " << ToUtf8(song.source) << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: move_playlists OLD-FOLDER NEW-FOLDER\n";
    return 2;
  }
  try {
    Progress progress;
    norvo::FolderMove folders;
    folders.from = argv[1];
    folders.to = argv[2];
    const norvo::MoveResult move = norvo::MovePlaylists(folders, {}, progress);
    PrintLeftOut(move);
    std::cout << move.verification.found << " of " << move.verification.checked
              << " references lead to their songs\n";
    return move.IsWhole() ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
  }
}
