#pragma once

#include <fcntl.h>

#include <string>

#include "platform/files/FileFailure.h"
#include "platform/files/SystemFile.h"
#include "platform/posix/Descriptor.h"

namespace norvo {

/// The ways below an open folder. None follows a link, neither at a path's end nor within
/// (LinkInTheWay), whatever a folder on the way becomes meanwhile. Everything that opens or changes
/// something below a folder goes by one of them.

#ifdef O_PATH
constexpr int kStartFlags = O_PATH | O_DIRECTORY;
#else
constexpr int kStartFlags = O_RDONLY | O_DIRECTORY;
#endif

/// Opens a path by the flags of open(2); the empty path is the folder itself.
FileResult<SystemFile> OpenInside(const SystemFile& root, const std::string& path, int flags,
                                  unsigned permissions = 0);

/// True when this system opens a path below a folder at one stroke. Elsewhere it is gone along part
/// by part, which costs two calls for each.
bool OpensAtOneStroke();

/// Where the last name of a path stands: one name in an open folder, for the calls that take both.
/// A path of one name costs no call.
class InsideFolder {
 public:
  /// Both must outlive this.
  InsideFolder(const SystemFile& root, const std::string& path);

  /// Why the folder cannot be reached.
  FileFailure Failure() const { return failure_; }
  int Folder() const { return DescriptorOf(reached_.IsOpen() ? reached_ : root_); }
  const char* Name() const { return name_; }

 private:
  const SystemFile& root_;
  SystemFile reached_;  // not open where the root itself is the folder
  const char* name_;
  FileFailure failure_;
};

}  // namespace norvo
