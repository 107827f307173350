#pragma once

#include <string_view>
#include <unordered_map>

#include "platform/hosted/PathResolver.h"
#include "text/FingerprintSet.h"

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
  /// none that differs from it in case only stood in the folder or was taken before. Raises
  /// FileError.
  Answer Take(StringView path);

  /// False when a file's folder was read and did not hold that name then, in whatever case.
  bool MayHaveHeld(const DrivePath& file) const;

 private:
  struct Folder {
    DrivePath path;
    Fingerprint print;
  };

  const Folder& FolderOf(StringView path);
  void ReadNames(const Folder& folder, StringView path);
  /// False when the folder has the name already.
  bool TakeName(const Folder& folder, std::string_view name);

  HostedFileSystem& files_;
  std::unordered_map<String, Folder> folders_;  // by their paths as they were given
  FingerprintSet read_;
  FingerprintSet names_;
};

}  // namespace norvo
