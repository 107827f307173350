#include "platform/nt/DiskNumber.h"

#include <winternl.h>

namespace norvo {

std::uint64_t DiskNumberOf(HANDLE file) {
  // Room for the disk's name, which comes along.
  struct {
    FILE_FS_VOLUME_INFORMATION facts;
    wchar_t name[64];
  } found = {};
  IO_STATUS_BLOCK block = {};
  ::NtQueryVolumeInformationFile(file, &block, &found, sizeof found, FileFsVolumeInformation);
  return found.facts.VolumeSerialNumber;
}

}  // namespace norvo
