#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"

namespace norvo {

std::optional<std::uint64_t> FreeBytes(const SystemFile& folder) {
  FILE_FS_FULL_SIZE_INFORMATION found = {};
  IO_STATUS_BLOCK block = {};
  const NTSTATUS status = ::NtQueryVolumeInformationFile(HandleOf(folder), &block, &found,
                                                         sizeof found, FileFsFullSizeInformation);
  if (!NT_SUCCESS(status) || found.TotalAllocationUnits.QuadPart == 0) return std::nullopt;
  // What the user's share of the disk leaves him.
  return static_cast<std::uint64_t>(found.CallerAvailableAllocationUnits.QuadPart) *
         found.SectorsPerAllocationUnit * found.BytesPerSector;
}

}  // namespace norvo
