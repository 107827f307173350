#pragma once

#include <cstddef>
#include <cstdint>
#include <future>
#include <vector>

#include "platform/files/NewFile.h"
#include "platform/hosted/PathResolver.h"

namespace norvo {

/// Copied files on their way to their names, which they get when all their bytes are on the disk:
/// many together, since one flush of the disk costs about as much for many files as for one.
class PlaceBatch {
 public:
  struct File {
    std::size_t job = 0;
    DrivePath path;
    NewFile file;
    FileFailure timesLost;  // why it has not got its source's times
  };

  PlaceBatch();

  void Add(File file, std::uint64_t bytes);
  bool IsEmpty() const { return files_.empty(); }
  /// True when a flush costs little beside what was copied.
  bool IsWorthAFlush() const;
  /// True when more would take too many open files, or leave too much undone after a stop.
  bool IsFull() const;

  /// Begins to flush the files and to put them in place, on a thread of its own. The batch is left
  /// alone, and stays where it is, until that has been awaited.
  void Start();
  /// True when there is nothing to wait for, any more or at all.
  bool IsDone() const;
  /// Waits until it is done. An answer for each file; see NewFile::PutInPlace.
  std::vector<FileFailure> Await() { return work_.get(); }
  const std::vector<File>& Files() const { return files_; }

 private:
  std::vector<File> files_;
  std::uint64_t bytes_ = 0;
  std::size_t mostFiles_;
  std::future<std::vector<FileFailure>> work_;  // goes first: it works on the files
};

}  // namespace norvo
