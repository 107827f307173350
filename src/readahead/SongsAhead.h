#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <stop_token>
#include <string>

#include "readahead/DriveRoots.h"
#include "readahead/RecentlySeen.h"
#include "readahead/Workers.h"

namespace norvo {

/// Has the system fetch the songs of playlists before their turn: the start and the end of each,
/// where the tags are.
class SongsAhead {
 public:
  /// The roots must outlive this.
  explicit SongsAhead(const DriveRoots& roots) : roots_(roots) {}

  /// A playlist that will be read, by its full path.
  void Add(String playlist);
  /// The reader is done with so many playlists.
  void Passed(std::size_t playlists);

 private:
  void Work(const std::stop_token& stop);
  std::size_t FetchSongs(const String& playlist, const std::stop_token& stop);
  bool Fetch(const String& song);

  const DriveRoots& roots_;
  RecentlySeen seen_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<String> waiting_;
  std::deque<std::size_t> ahead_;       // items of the playlists that the reader has not passed yet
  std::size_t itemsAhead_ = 0;          // their sum
  std::size_t passed_ = 0;              // playlists
  std::atomic<unsigned> inMemory_ = 0;  // so many songs in a row needed no disk
  // Last: they use all the others.
  Workers workers_{[this](const std::stop_token& stop) { Work(stop); }};
};

}  // namespace norvo
