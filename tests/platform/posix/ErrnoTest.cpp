#include "platform/posix/Errno.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "platform/files/FailureText.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

struct CodeAndKind {
  int code;
  Kind kind;
};

TEST(Errno, EachNumberIsAKindOfFailureAndIsKept) {
  constexpr CodeAndKind kRows[] = {
      {0, Kind::None},
      {ENOENT, Kind::NotFound},
      {ENOTDIR, Kind::NotAFolder},
      {EEXIST, Kind::AlreadyExists},
      {ELOOP, Kind::LinkInTheWay},
      {EACCES, Kind::AccessDenied},
      {EPERM, Kind::AccessDenied},
      {EROFS, Kind::ReadOnlyDisk},
      {ENOSPC, Kind::DiskFull},
      {EDQUOT, Kind::QuotaReached},
      {EFBIG, Kind::FileTooLarge},
      {ENAMETOOLONG, Kind::NameTooLong},
      {EINVAL, Kind::InvalidName},
      {EILSEQ, Kind::InvalidName},
      {EISDIR, Kind::IsAFolder},
      {EIO, Kind::DiskFailed},
      {EMFILE, Kind::TooManyOpenFiles},
      {ENFILE, Kind::TooManyOpenFiles},
      {ENOMEM, Kind::OutOfMemory},
      {EXDEV, Kind::Other},
  };
  for (const CodeAndKind& row : kRows) {
    EXPECT_EQ(FailureOf(row.code).kind, row.kind) << row.code;
    EXPECT_EQ(FailureOf(row.code).code, row.code);
    errno = row.code;
    EXPECT_EQ(LastFailure().kind, row.kind) << row.code;
  }
}

TEST(Errno, ACallThatAnswersZeroHasNotFailed) {
  errno = ENOSPC;
  EXPECT_FALSE(FailureUnlessZero(0));
  EXPECT_EQ(FailureUnlessZero(-1).kind, Kind::DiskFull);
}

TEST(Errno, WhatHasNoWordsOfOursHasTheSystems) {
  for (const int code : {EXDEV, EMLINK, ENOMEM, EBADF}) {
    EXPECT_EQ(Utf8(FailureText(FailureOf(code))), std::strerror(code));
  }
}

}  // namespace
}  // namespace norvo
