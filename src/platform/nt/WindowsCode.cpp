#include "platform/nt/WindowsCode.h"

#include <windows.h>

#include "platform/files/SystemCalls.h"
#include "platform/win32/DiskCodes.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

FileFailure::Kind KindOf(std::uint32_t code) {
  using Kind = FileFailure::Kind;
  // A disk that is pulled out, or a share that is gone, has lost nothing: its files are not "gone".
  if (TellsOfFailedDisk(code) || TellsOfAbsentDisk(code)) return Kind::DiskFailed;
  switch (code) {
    case ERROR_SUCCESS:
      return Kind::None;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_DELETE_PENDING:
      return Kind::NotFound;
    case ERROR_DIRECTORY:
      return Kind::NotAFolder;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return Kind::AlreadyExists;
    case kStoppedOnSymlink:
    case ERROR_CANT_RESOLVE_FILENAME:
      return Kind::LinkInTheWay;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return Kind::AccessDenied;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
      return Kind::InUse;
    case ERROR_WRITE_PROTECT:
      return Kind::ReadOnlyDisk;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return Kind::DiskFull;
    case kDiskQuotaExceeded:
      return Kind::QuotaReached;
    case ERROR_FILE_TOO_LARGE:
      return Kind::FileTooLarge;
    case ERROR_FILENAME_EXCED_RANGE:
      return Kind::NameTooLong;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_PARAMETER:
      return Kind::InvalidName;
    case ERROR_CANT_ACCESS_FILE:
      return Kind::BytesElsewhere;
    case kDirectoryNotSupported:
      return Kind::IsAFolder;
    case ERROR_TOO_MANY_OPEN_FILES:
      return Kind::TooManyOpenFiles;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
      return Kind::OutOfMemory;
    default:
      return Kind::Other;
  }
}

}  // namespace

FileFailure FailureOfCode(std::uint32_t code) {
  return {KindOf(code), static_cast<int>(code)};
}

FileFailure LastFailure() {
  return FailureOfCode(::GetLastError());
}

std::string SystemMessage(int code) {
  constexpr DWORD kOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
  wchar_t buffer[1024];
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | kOneLine, nullptr,
      static_cast<DWORD>(code), 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
  if (length == 0) return "error " + std::to_string(code);
  StringView text(reinterpret_cast<const char16_t*>(buffer), length);
  while (!text.empty() && (text.back() == u' ' || text.back() == u'.')) text.remove_suffix(1);
  return ToUtf8(text);
}

}  // namespace norvo
