#include "move/SongBringing.h"

#include <utility>
#include <vector>

namespace norvo {
namespace {

WorkWarning LostTimes(const String& place, const PlaceOutcome& outcome) {
  WorkWarning warning;
  warning.kind = WorkWarning::Kind::TimesLost;
  warning.side = MachineSide::New;
  warning.subject = place;
  warning.detail = outcome.detail;
  return warning;
}

class SongListener final : public PlaceListener {
 public:
  SongListener(std::vector<MovedSong*> songs, WorkReport& report)
      : songs_(std::move(songs)), report_(report) {
    for (const MovedSong* const song : songs_) total_ += song->size;
  }

  void OnBytes(std::uint64_t more) override {
    bytes_ += static_cast<double>(more);
    report_.Progress({WorkPhase::BringingSongs, done_ + 1, songs_.size(), bytes_, total_, {}});
  }

  void OnPlaced(std::size_t job, const PlaceOutcome& outcome) override {
    ++done_;
    MovedSong& song = *songs_[job];
    song.state = StateOf(outcome.result);
    if (outcome.result == PlaceResult::Failed) {
      song.fault = MovedSong::Fault::NotBrought;
      song.failure = outcome.failure;
      song.systemReason = outcome.detail;
    }
    report_.Observer().OnSong(song);
    if (outcome.hasLostTimes) report_.Warn(LostTimes(song.place, outcome));
  }

 private:
  static MovedSong::State StateOf(PlaceResult result) {
    switch (result) {
      case PlaceResult::Copied:
        return MovedSong::State::Copied;
      case PlaceResult::Linked:
        return MovedSong::State::Linked;
      case PlaceResult::AlreadyThere:
        return MovedSong::State::AlreadyThere;
      case PlaceResult::Failed:
        break;
    }
    return MovedSong::State::LeftOut;
  }

  std::vector<MovedSong*> songs_;
  WorkReport& report_;
  std::size_t done_ = 0;
  double bytes_ = 0;
  double total_ = 0;
};

/// Warns of the songs that get no plain name.
class NameListener final : public PlaceListener {
 public:
  NameListener(std::vector<const MovedSong*> songs, WorkReport& report)
      : songs_(std::move(songs)), report_(report) {}

  void OnBytes(std::uint64_t) override {}
  void OnPlaced(std::size_t job, const PlaceOutcome& outcome) override {
    if (outcome.hasLostTimes) report_.Warn(LostTimes(songs_[job]->secondPlace, outcome));
    if (outcome.result != PlaceResult::Failed) return;
    WorkWarning warning;
    warning.kind = WorkWarning::Kind::NoPlainName;
    warning.side = MachineSide::New;
    warning.subject = songs_[job]->place;
    warning.detail = outcome.detail;
    warning.wanted = songs_[job]->secondPlace;
    report_.Warn(std::move(warning));
  }

 private:
  std::vector<const MovedSong*> songs_;
  WorkReport& report_;
};

bool IsThere(const MovedSong& song) {
  return song.state != MovedSong::State::Planned && song.state != MovedSong::State::LeftOut;
}

}  // namespace

void GivePlainNames(MediaPlacer& namer, MoveWork& work) {
  std::vector<const MovedSong*> songs;
  std::vector<PlaceJob> jobs;
  for (const MovedSong& song : work.result.songs) {
    if (!IsThere(song) || !song.listed || song.secondPlace.empty()) continue;
    songs.push_back(&song);
    jobs.push_back({song.place, song.secondPlace});
  }
  if (jobs.empty()) return;
  NameListener listener(std::move(songs), work.report);
  namer.PlaceAll(jobs, PlaceMode::Link, listener);
}

void BringSongs(MediaPlacer& placer, PlaceMode mode, MoveWork& work) {
  std::vector<MovedSong*> songs;
  std::vector<PlaceJob> jobs;
  for (MovedSong& song : work.result.songs) {
    if (song.state != MovedSong::State::Planned || song.place.empty()) continue;
    songs.push_back(&song);
    jobs.push_back({song.source, song.place});
  }
  if (jobs.empty()) return;
  SongListener listener(std::move(songs), work.report);
  placer.PlaceAll(jobs, mode, listener);
}

}  // namespace norvo
