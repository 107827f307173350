#pragma once

#include "platform/files/SystemFile.h"

namespace norvo {

/// -1 for a file that is not open.
inline int DescriptorOf(const SystemFile& file) {
  return static_cast<int>(file.Get());
}

}  // namespace norvo
