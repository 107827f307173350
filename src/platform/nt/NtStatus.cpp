#include "platform/nt/NtStatus.h"

// Both headers have some of the codes.
#define WIN32_NO_STATUS
#include <windows.h>
#undef WIN32_NO_STATUS
#include <ntstatus.h>
#include <winternl.h>

#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

// Which some headers lack.
constexpr NTSTATUS kReparsePointEncountered = static_cast<NTSTATUS>(0xC000050B);

}  // namespace

/// Where several answers share one Windows code, that does not tell enough.
FileFailure FailureOfStatus(long status) {
  using Kind = FileFailure::Kind;
  if (NT_SUCCESS(status)) return {};
  FileFailure failure = FailureOfCode(::RtlNtStatusToDosError(status));
  switch (status) {
    case STATUS_FILE_IS_A_DIRECTORY:
      failure.kind = Kind::IsAFolder;
      break;
    case STATUS_DELETE_PENDING:
      failure.kind = Kind::NotFound;  // it stays only as long as somebody has it open
      break;
    case STATUS_STOPPED_ON_SYMLINK:
    case kReparsePointEncountered:
      failure.kind = Kind::LinkInTheWay;
      break;
    default:
      break;
  }
  return failure;
}

bool IsUnknownHere(long status) {
  switch (status) {
    case STATUS_NOT_IMPLEMENTED:
    case STATUS_NOT_SUPPORTED:
    case STATUS_INVALID_INFO_CLASS:
    case STATUS_INVALID_PARAMETER:
    case STATUS_INVALID_DEVICE_REQUEST:
      return true;
    default:
      return false;
  }
}

bool IsTooMuch(long status) {
  return status == STATUS_BUFFER_OVERFLOW;
}

/// The second is said of an empty disk, whose root has not even "." and "..".
bool IsEndOfNames(long status) {
  return status == STATUS_NO_MORE_FILES || status == STATUS_NO_SUCH_FILE;
}

}  // namespace norvo
