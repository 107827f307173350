#pragma once

#include <string>

#include "platform/files/SystemCalls.h"

namespace norvo {

/// A file that stands somewhere as long as somebody works there: it is locked, and tells by whom
/// and since when. The lock ends with the process, however that ends; the file goes with this
/// object. One that a killed process has left behind is not locked, and counts for nothing.
class FileLock {
 public:
  /// Of a file in an open folder. Nothing is done before `Take`.
  FileLock(SystemFile folder, std::string name);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  /// False when somebody else has it, unless it is to wait for them. True without a lock where none
  /// can be made: nobody can write there, or the disk has no locks.
  bool Take(bool wait);

  /// Who has it instead: "norvo-playlists (process 1234 of ann on pc7) since 2026-11-22 14:05";
  /// empty when they have not said so yet.
  const std::string& Holder() const { return holder_; }

 private:
  enum class Step { Taken, Busy, Impossible, Again };

  Step TryOnce(bool wait);
  Step Own(SystemFile file);

  SystemFile folder_;
  std::string name_;
  SystemFile file_;
  std::string holder_;
};

}  // namespace norvo
