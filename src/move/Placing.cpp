#include "move/Placing.h"

#include "text/Encoding.h"

namespace norvo {
namespace {

class SongListener final : public PlaceListener {
 public:
  SongListener(std::vector<Song*> songs, Console& console)
      : songs_(std::move(songs)), console_(console) {
    for (const Song* const song : songs_) total_ += song->size;
  }

  void OnBytes(std::uint64_t more) override {
    done_ += static_cast<double>(more);
    console_.Bar().Bytes("bringing songs", done_, total_, {});
  }

  void OnPlaced(std::size_t job, const PlaceOutcome& outcome) override {
    Song& song = *songs_[job];
    switch (outcome.result) {
      case PlaceResult::Copied:
        song.state = Song::State::Copied;
        break;
      case PlaceResult::Linked:
        song.state = Song::State::Linked;
        break;
      case PlaceResult::AlreadyThere:
        song.state = Song::State::AlreadyThere;
        break;
      case PlaceResult::Failed:
        song.state = Song::State::LeftOut;
        song.reason = ToUtf8(outcome.reason);
        break;
    }
  }

 private:
  std::vector<Song*> songs_;
  Console& console_;
  double total_ = 0;
  double done_ = 0;
};

}  // namespace

void PlaceSongs(FilePlacer& placer, PlaceMode mode, Move& move, Console& console) {
  std::vector<Song*> songs;
  std::vector<PlaceJob> jobs;
  for (Song& song : move.songs) {
    if (song.state != Song::State::Planned || song.place.empty()) continue;
    songs.push_back(&song);
    jobs.push_back({song.source, song.place});
  }
  if (jobs.empty()) return;
  SongListener listener(std::move(songs), console);
  placer.PlaceAll(jobs, mode, listener);
}

}  // namespace norvo
