// Moves the playlists and songs of one machine to another, both held in folders, and lists what was
// left out:
//   move_playlists /mnt/old-pc /mnt/new-pc
#include <norvo/machines/FolderMove.h>
#include <norvo/text/Encoding.h>

#include <iostream>
#include <stdexcept>

class Progress final : public norvo::WorkObserver {
 public:
  void OnPlaylist(const norvo::MovedPlaylist& playlist) override {
    std::cout << norvo::ToUtf8(playlist.source) << ": " << norvo::CountSongs(playlist) << " songs, "
              << playlist.natives.size() << " new playlists\n";
    for (const norvo::MovedItem& item : playlist.items) {
      if (!item.IsCarried()) std::cout << "  in vain: " << norvo::ToUtf8(item.reference) << '\n';
    }
  }
  void OnSong(const norvo::MovedSong& song) override {
    if (song.state != norvo::MovedSong::State::LeftOut) return;
    std::cout << "left out: the song " << norvo::ToUtf8(song.source) << '\n';
  }
};

int main(int argc, char** argv) {
  try {
    if (argc != 3) throw std::invalid_argument("usage: move_playlists OLD-FOLDER NEW-FOLDER");
    Progress progress;
    norvo::FolderMove folders;
    folders.from = argv[1];
    folders.to = argv[2];
    const norvo::MoveResult move = norvo::MovePlaylists(folders, {}, progress);
    std::cout << move.count.rightSongs << " of " << move.count.songs
              << " songs are reached and right\n";
    return move.IsWhole() ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 2;
  }
}
