#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <vector>

#include "readahead/DriveRoots.h"
#include "readahead/RecentlySeen.h"
#include "readahead/Workers.h"

namespace norvo {

/// Lists folders before their turn, and what lies below, so that the system has them in its memory.
class FoldersAhead {
 public:
  /// Is told of the full path of a playlist. On any thread.
  using PlaylistSink = std::function<void(String path)>;

  /// The roots must outlive this.
  FoldersAhead(const DriveRoots& roots, PlaylistSink onPlaylist);

  /// Folders that will soon be listed, by full paths with a separator at their ends.
  void Add(std::vector<String> folders);

 private:
  void Work(const std::stop_token& stop);
  void List(const String& folder);
  bool IsOfUse();

  const DriveRoots& roots_;
  const PlaylistSink onPlaylist_;
  RecentlySeen seen_;
  std::mutex mutex_;
  std::condition_variable_any added_;
  std::vector<String> waiting_;          // the next one last
  std::atomic<bool> hasWaited_ = false;  // some folder needed the disk
  std::atomic<unsigned> inMemory_ = 0;   // so many in a row needed no disk
  std::atomic<unsigned> left_ = 0;       // so often nothing was added because of that
  // Last: they use all the others.
  Workers workers_{[this](const std::stop_token& stop) { Work(stop); }};
};

}  // namespace norvo
