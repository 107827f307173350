#pragma once

#include <cstdint>

#include "platform/files/SystemFile.h"

namespace norvo {

/// The number of the disk that holds an open file; 0 for one that has none. To ask for it is dear
/// on some systems, and all below a folder lies on the folder's disk, since nothing leads out of
/// it. So each disk is asked once, by the folder that everything on it is opened from.
std::uint64_t DiskNumberOf(const SystemFile& file);

/// The file was opened below that folder.
void ShareDiskNumber(const SystemFile& folder, const SystemFile& file);

/// The file is about to be closed: the system will give its handle to others.
void ForgetDiskNumber(SystemFile::Native handle);

}  // namespace norvo
