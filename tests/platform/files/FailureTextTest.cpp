#include "platform/files/FailureText.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(FailureText, EndsASentence) {
  using Kind = FileFailure::Kind;
  const auto text = [](Kind kind) { return Utf8(FailureText(kind)); };
  EXPECT_EQ(text(Kind::NotFound), "there is no such drive, folder or file");
  EXPECT_EQ(text(Kind::NotAFolder), "something else stands where it or its folder should");
  EXPECT_EQ(text(Kind::AlreadyExists), text(Kind::NotAFolder));
  EXPECT_EQ(text(Kind::LinkInTheWay), text(Kind::NotAFolder));
  EXPECT_EQ(text(Kind::AccessDenied), "permission denied");
  EXPECT_EQ(text(Kind::InUse), "another program has it open");
  EXPECT_EQ(text(Kind::ReadOnlyDisk), "the disk is read-only");
  EXPECT_EQ(text(Kind::DiskFull), "the disk is full");
  EXPECT_EQ(text(Kind::QuotaReached), "the user's share of the disk is full");
  EXPECT_EQ(text(Kind::FileTooLarge), "the file is larger than the disk or the system allows");
  EXPECT_EQ(text(Kind::NameTooLong), "the name is too long");
  EXPECT_EQ(text(Kind::InvalidName), "the name cannot be a file's");
  EXPECT_EQ(text(Kind::IsAFolder), text(Kind::InvalidName));
  EXPECT_EQ(text(Kind::NotAFile), "it is no file");
  EXPECT_EQ(text(Kind::BytesElsewhere),
            "its bytes are not on this disk, as those of a file that a cloud keeps");
  EXPECT_EQ(text(Kind::TooLong), "it is too large for such a file");
  EXPECT_EQ(text(Kind::DiskFailed), "the disk failed");
  EXPECT_EQ(text(Kind::TooManyOpenFiles), "too many files are open");
}

}  // namespace
}  // namespace norvo
