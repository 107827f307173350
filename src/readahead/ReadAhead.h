#pragma once

#include <cstddef>

#include "platform/hosted/HostedPlatform.h"
#include "readahead/FoldersAhead.h"
#include "readahead/SongsAhead.h"

namespace norvo {

/// Reads ahead of the work on a machine, on threads of its own, so that the work finds in the
/// system's memory what it would otherwise wait for: the folders that a walk over the drives will
/// come to, and the songs of the playlists in there. Nothing that is read here is used: what it
/// misses, or finds other than the work does later, has no effect. The disk's files and their times
/// stay as they are, where the system lets them. A system that does not tell whether something had
/// to be waited for, such as Windows, is left alone.
class ReadAhead {
 public:
  /// Follows the machine, which must outlive this, by what it lists.
  explicit ReadAhead(HostedPlatform& machine);
  /// Waits for the one file or folder that each thread is busy with.
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  /// The work is done with so many playlists. It is not run ahead of without end.
  void Passed(std::size_t playlists) { songs_.Passed(playlists); }

 private:
  void OnListed(StringView folder, std::span<const FolderItem> items);

  HostedPlatform& machine_;
  const DriveRoots roots_;
  SongsAhead songs_;
  FoldersAhead folders_;
};

}  // namespace norvo
