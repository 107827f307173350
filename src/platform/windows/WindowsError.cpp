#include "platform/windows/WindowsError.h"

#include <windows.h>

#include "automation/RunTimeError.h"
#include "platform/win32/DiskCodes.h"

namespace norvo {
namespace {

// ERROR_DISK_QUOTA_EXCEEDED, which some headers lack.
constexpr std::uint32_t kDiskQuotaExceeded = 1295;

}  // namespace

std::int32_t ErrorNumber(std::uint32_t code, Subject subject) {
  if (TellsOfFailedDisk(code)) return error::kDeviceInputOutput;
  if (TellsOfAbsentDisk(code)) return error::kPathNotFound;
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
      return subject == Subject::File ? error::kFileNotFound : error::kPathNotFound;
    // Nothing can have such a name, so that it is simply not there; but it cannot be made either.
    case ERROR_INVALID_NAME:
      if (subject == Subject::New) return error::kPathFileAccess;
      return subject == Subject::File ? error::kFileNotFound : error::kPathNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_DRIVE:
      return error::kPathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return error::kPermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return error::kDiskFull;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return error::kOutOfMemory;
    case ERROR_INVALID_PARAMETER:
      return error::kInvalidArgument;
    default:
      return error::kPathFileAccess;
  }
}

bool IsUntold(std::uint32_t code) {
  switch (code) {
    case ERROR_TOO_MANY_OPEN_FILES:
    case ERROR_NO_SYSTEM_RESOURCES:
    case ERROR_REGISTRY_CORRUPT:
    case ERROR_REGISTRY_IO_FAILED:
      return true;
    default:
      const std::int32_t number = ErrorNumber(code, Subject::File);
      return number == error::kDeviceInputOutput || number == error::kOutOfMemory;
  }
}

void RaiseWindowsError(std::uint32_t code, Subject subject, StringView path) {
  const std::int32_t number = ErrorNumber(code, subject);
  throw RunTimeError(number, String(DescriptionOf(number)).append(u": ").append(path));
}

void RaiseIfUntold(std::uint32_t code, Subject subject, StringView path) {
  if (IsUntold(code)) RaiseWindowsError(code, subject, path);
}

}  // namespace norvo
