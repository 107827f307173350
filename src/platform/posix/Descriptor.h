#pragma once

#include "platform/files/SystemFile.h"
#include "platform/posix/Errno.h"

namespace norvo {

/// -1 for a file that is not open.
inline int DescriptorOf(const SystemFile& file) {
  return static_cast<int>(file.Get());
}

/// What a call of the system has opened; its failure when that told -1.
inline FileResult<SystemFile> Owned(int descriptor) {
  if (descriptor < 0) return LastFailure();
  return SystemFile(descriptor);
}

}  // namespace norvo
