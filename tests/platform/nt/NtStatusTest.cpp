#include "platform/nt/NtStatus.h"

#include <gtest/gtest.h>

#define WIN32_NO_STATUS
#include <windows.h>
#undef WIN32_NO_STATUS
#include <ntstatus.h>

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

struct StatusAndKind {
  long status;
  Kind kind;
  int code;
};

TEST(NtStatus, EachIsAKindOfFailureWithTheCodeThatHasWords) {
  constexpr StatusAndKind kRows[] = {
      {STATUS_SUCCESS, Kind::None, 0},
      {STATUS_OBJECT_NAME_NOT_FOUND, Kind::NotFound, ERROR_FILE_NOT_FOUND},
      {STATUS_OBJECT_PATH_NOT_FOUND, Kind::NotFound, ERROR_PATH_NOT_FOUND},
      {STATUS_DELETE_PENDING, Kind::NotFound, ERROR_ACCESS_DENIED},
      {STATUS_NOT_A_DIRECTORY, Kind::NotAFolder, ERROR_DIRECTORY},
      {STATUS_FILE_IS_A_DIRECTORY, Kind::IsAFolder, ERROR_ACCESS_DENIED},
      {STATUS_OBJECT_NAME_COLLISION, Kind::AlreadyExists, ERROR_ALREADY_EXISTS},
      {STATUS_ACCESS_DENIED, Kind::AccessDenied, ERROR_ACCESS_DENIED},
      {STATUS_SHARING_VIOLATION, Kind::InUse, ERROR_SHARING_VIOLATION},
      {STATUS_FILE_LOCK_CONFLICT, Kind::InUse, ERROR_LOCK_VIOLATION},
      {STATUS_MEDIA_WRITE_PROTECTED, Kind::ReadOnlyDisk, ERROR_WRITE_PROTECT},
      {STATUS_DISK_FULL, Kind::DiskFull, ERROR_DISK_FULL},
      {STATUS_OBJECT_NAME_INVALID, Kind::InvalidName, ERROR_INVALID_NAME},
      {STATUS_IO_DEVICE_ERROR, Kind::DiskFailed, ERROR_IO_DEVICE},
      {STATUS_NO_MEMORY, Kind::OutOfMemory, ERROR_NOT_ENOUGH_MEMORY},
      {STATUS_INSUFFICIENT_RESOURCES, Kind::OutOfMemory, ERROR_NO_SYSTEM_RESOURCES},
      {STATUS_NOT_SUPPORTED, Kind::Other, ERROR_NOT_SUPPORTED},
  };
  for (const StatusAndKind& row : kRows) {
    EXPECT_EQ(FailureOfStatus(row.status).kind, row.kind) << std::hex << row.status;
    EXPECT_EQ(FailureOfStatus(row.status).code, row.code) << std::hex << row.status;
  }
  EXPECT_EQ(FailureOfStatus(static_cast<long>(STATUS_STOPPED_ON_SYMLINK)).kind, Kind::LinkInTheWay);
}

TEST(NtStatus, AQuestionThatNobodyKnowsIsToldFromOneThatIsRefused) {
  for (const long status : {STATUS_NOT_IMPLEMENTED, STATUS_NOT_SUPPORTED, STATUS_INVALID_INFO_CLASS,
                            STATUS_INVALID_PARAMETER, STATUS_INVALID_DEVICE_REQUEST}) {
    EXPECT_TRUE(IsUnknownHere(status)) << std::hex << status;
  }
  for (const long status : {STATUS_SUCCESS, STATUS_ACCESS_DENIED, STATUS_SHARING_VIOLATION}) {
    EXPECT_FALSE(IsUnknownHere(status)) << std::hex << status;
  }
}

}  // namespace
}  // namespace norvo
