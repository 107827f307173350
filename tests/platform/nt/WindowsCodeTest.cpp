#include "platform/nt/WindowsCode.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/files/FailureText.h"
#include "platform/files/SystemCalls.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

struct CodeAndKind {
  std::uint32_t code;
  Kind kind;
};

TEST(WindowsCode, EachIsAKindOfFailureAndIsKept) {
  constexpr CodeAndKind kRows[] = {
      {ERROR_SUCCESS, Kind::None},
      {ERROR_FILE_NOT_FOUND, Kind::NotFound},
      {ERROR_PATH_NOT_FOUND, Kind::NotFound},
      {ERROR_INVALID_DRIVE, Kind::NotFound},
      {ERROR_NOT_READY, Kind::DiskFailed},
      {ERROR_NO_MEDIA_IN_DRIVE, Kind::DiskFailed},
      {ERROR_UNRECOGNIZED_VOLUME, Kind::DiskFailed},
      {ERROR_BAD_NETPATH, Kind::DiskFailed},
      {ERROR_BAD_NET_NAME, Kind::DiskFailed},
      {ERROR_NO_NET_OR_BAD_PATH, Kind::DiskFailed},
      {ERROR_NETWORK_UNREACHABLE, Kind::DiskFailed},
      {ERROR_DELETE_PENDING, Kind::NotFound},
      {ERROR_DIRECTORY, Kind::NotAFolder},
      {ERROR_FILE_EXISTS, Kind::AlreadyExists},
      {ERROR_ALREADY_EXISTS, Kind::AlreadyExists},
      {kStoppedOnSymlink, Kind::LinkInTheWay},
      {ERROR_CANT_RESOLVE_FILENAME, Kind::LinkInTheWay},
      {ERROR_ACCESS_DENIED, Kind::AccessDenied},
      {ERROR_NETWORK_ACCESS_DENIED, Kind::AccessDenied},
      {ERROR_PRIVILEGE_NOT_HELD, Kind::AccessDenied},
      {ERROR_SHARING_VIOLATION, Kind::InUse},
      {ERROR_LOCK_VIOLATION, Kind::InUse},
      {ERROR_USER_MAPPED_FILE, Kind::InUse},
      {ERROR_WRITE_PROTECT, Kind::ReadOnlyDisk},
      {ERROR_DISK_FULL, Kind::DiskFull},
      {ERROR_HANDLE_DISK_FULL, Kind::DiskFull},
      {kDiskQuotaExceeded, Kind::QuotaReached},
      {ERROR_FILE_TOO_LARGE, Kind::FileTooLarge},
      {ERROR_FILENAME_EXCED_RANGE, Kind::NameTooLong},
      {ERROR_INVALID_NAME, Kind::InvalidName},
      {ERROR_BAD_PATHNAME, Kind::InvalidName},
      {ERROR_INVALID_PARAMETER, Kind::InvalidName},
      {kDirectoryNotSupported, Kind::IsAFolder},
      {ERROR_CRC, Kind::DiskFailed},
      {ERROR_SEEK, Kind::DiskFailed},
      {ERROR_SECTOR_NOT_FOUND, Kind::DiskFailed},
      {ERROR_READ_FAULT, Kind::DiskFailed},
      {ERROR_WRITE_FAULT, Kind::DiskFailed},
      {ERROR_GEN_FAILURE, Kind::DiskFailed},
      {ERROR_IO_DEVICE, Kind::DiskFailed},
      {ERROR_FILE_CORRUPT, Kind::DiskFailed},
      {ERROR_DISK_CORRUPT, Kind::DiskFailed},
      {ERROR_DEVICE_NOT_CONNECTED, Kind::DiskFailed},
      {ERROR_DEV_NOT_EXIST, Kind::DiskFailed},
      {ERROR_NETNAME_DELETED, Kind::DiskFailed},
      {ERROR_UNEXP_NET_ERR, Kind::DiskFailed},
      {ERROR_TOO_MANY_OPEN_FILES, Kind::TooManyOpenFiles},
      {ERROR_NOT_ENOUGH_MEMORY, Kind::OutOfMemory},
      {ERROR_OUTOFMEMORY, Kind::OutOfMemory},
      {ERROR_NO_SYSTEM_RESOURCES, Kind::OutOfMemory},
      {ERROR_NOT_SUPPORTED, Kind::Other},
      {ERROR_CANT_ACCESS_FILE, Kind::BytesElsewhere},
  };
  for (const CodeAndKind& row : kRows) {
    EXPECT_EQ(FailureOfCode(row.code).kind, row.kind) << row.code;
    EXPECT_EQ(FailureOfCode(row.code).code, static_cast<int>(row.code));
    ::SetLastError(row.code);
    EXPECT_EQ(LastFailure().kind, row.kind) << row.code;
  }
}

TEST(WindowsCode, ACallThatAnswersTrueHasNotFailed) {
  ::SetLastError(ERROR_DISK_FULL);
  EXPECT_FALSE(FailureUnlessTrue(TRUE));
  EXPECT_EQ(FailureUnlessTrue(FALSE).kind, Kind::DiskFull);
}

TEST(WindowsCode, WhatHasNoWordsOfOursHasTheSystemsInOneLineThatEndsASentence) {
  const std::string text = Utf8(FailureText(FailureOfCode(ERROR_NOT_SUPPORTED)));
  EXPECT_FALSE(text.empty());
  EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
  EXPECT_NE(text.back(), '.') << text;
  EXPECT_NE(text.back(), ' ') << text;
}

TEST(WindowsCode, ANumberWithoutWordsIsToldItself) {
  EXPECT_EQ(SystemMessage(0x2BADBEEF), "error 732806895");
}

}  // namespace
}  // namespace norvo
