#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "platform/hosted/PathResolver.h"
#include "text/Text.h"

namespace norvo {

class HostedFileSystem;

/// The folders that new files are put into. Each is read once, so that a name is known to be new
/// without a look at the disk; what somebody else puts there later is met when the file gets its
/// name.
class TargetFolders {
 public:
  explicit TargetFolders(HostedFileSystem& files) : files_(files) {}

  struct Answer {
    DrivePath path;  ///< where the file stands if it is new, spelled as in the path
    bool isNew = false;
  };
  /// Takes the name of a path, in its folder, which is created if it is missing. A name is new when
  /// none that differs from it in case only stood in the folder or was taken before. Rarely a new
  /// one passes for an old one. Raises FileError.
  Answer Take(StringView path);

 private:
  const DrivePath& FolderOf(StringView path);
  void ReadNames(const DrivePath& folder, StringView path);

  HostedFileSystem& files_;
  std::unordered_map<String, DrivePath> folders_;  // by their paths as they were given
  std::unordered_set<std::uint64_t> read_;
  std::unordered_set<std::uint64_t> names_;
};

}  // namespace norvo
