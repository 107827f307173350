#pragma once

#include <array>
#include <vector>

#include "platform/files/SystemCalls.h"
#include "platform/hosted/HostedLayout.h"

namespace norvo {

/// The folders of a machine's drives, opened once and from then on the same: any number of threads
/// may open what lies in them.
class DriveRoots {
 public:
  explicit DriveRoots(const std::vector<HostedDrive>& drives);

  /// Opens a full path of the machine that is spelled as on the disk and has no link in it; what is
  /// not is left alone (NotFound, LinkInTheWay).
  FileResult<SystemFile> Open(StringView path, OpenMode mode) const;

 private:
  std::array<SystemFile, 26> roots_;
};

}  // namespace norvo
