#include "readahead/SongsAhead.h"

#include <utility>

#include "readahead/PlaylistReferences.h"
#include "text/Fingerprint.h"

namespace norvo {
namespace {

// The system fetches on its own once it is asked, so few threads keep a disk busy.
constexpr std::size_t kSongThreads = 2;
// Where the tags of a song are.
constexpr std::uint64_t kStart = 4096;
constexpr std::uint64_t kEnd = 128;
// What is fetched too early is forgotten before its turn: each song takes 10 KB of the system's
// memory. A new playlist is begun only below this.
constexpr std::size_t kMostItemsAhead = 16384;
// More are left to their reader.
constexpr std::size_t kMostPlaylists = 100'000;
// After so many songs that needed no disk, a playlist is left once one of its own needs none
// either.
constexpr unsigned kEnoughSongs = 8;

}  // namespace

void SongsAhead::Add(String playlist) {
  if (!seen_.IsNew(CaselessFingerprintOf(playlist).first)) return;
  {
    const std::lock_guard lock(mutex_);
    if (waiting_.size() >= kMostPlaylists) return;
    waiting_.push_back(std::move(playlist));
  }
  workers_.Grow(kSongThreads);
  changed_.notify_one();
}

void SongsAhead::Passed(std::size_t playlists) {
  {
    const std::lock_guard lock(mutex_);
    for (; passed_ < playlists && !ahead_.empty(); ++passed_) {
      itemsAhead_ -= ahead_.front();
      ahead_.pop_front();
    }
  }
  changed_.notify_all();
}

void SongsAhead::Work(const std::stop_token& stop) {
  const auto hasWork = [this] { return !waiting_.empty() && itemsAhead_ < kMostItemsAhead; };
  std::unique_lock lock(mutex_);
  while (changed_.wait(lock, stop, hasWork) && !stop.stop_requested()) {
    const String playlist = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    const std::size_t items = FetchSongs(playlist, stop);
    lock.lock();
    ahead_.push_back(items);
    itemsAhead_ += items;
  }
}

/// Gives how many items the playlist has, as far as it was looked at.
std::size_t SongsAhead::FetchSongs(const String& playlist, const std::stop_token& stop) {
  const FileResult<SystemFile> file = roots_.Open(playlist, OpenMode::Read);
  if (!file) return 0;
  KeepAccessTime(*file);
  const String folder = playlist.substr(0, playlist.rfind(u'\\') + 1);
  const std::uint64_t of = FingerprintOf(folder).first;
  std::size_t items = 0;
  ForEachReference(*file, [&](std::string_view reference) {
    ++items;
    if (stop.stop_requested()) return false;
    if (!seen_.IsNew(FingerprintOf(reference).first ^ of)) return true;
    return Fetch(ReferencedPath(reference, folder));
  });
  return items;
}

/// False when the others of the playlist need no fetching, as it seems.
bool SongsAhead::Fetch(const String& song) {
  const std::optional<std::uint64_t> before = DiskWaits();
  const FileResult<SystemFile> file = roots_.Open(song, OpenMode::Read);
  if (!file) return true;
  const FileResult<FileRecord> record = LookUp(*file);
  if (!record || record->kind != FileRecord::Kind::File) return true;
  WillRead(*file, 0, kStart);
  if (record->size > kStart + kEnd) WillRead(*file, record->size - kEnd, kEnd);
  if (before && DiskWaits() == before) return ++inMemory_ < kEnoughSongs;
  inMemory_ = 0;
  return true;
}

}  // namespace norvo
