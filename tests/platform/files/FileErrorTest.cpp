#include "platform/files/FileError.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

TEST(FileError, ItsNumberStandsForTheFailure) {
  const auto numbers = [](Kind kind) {
    std::string text;
    for (const Subject subject : {Subject::File, Subject::Folder, Subject::New}) {
      text += std::to_string(ErrorNumber(kind, subject)) + ' ';
    }
    return text;
  };
  EXPECT_EQ(numbers(Kind::NotFound), "53 76 76 ");
  EXPECT_EQ(numbers(Kind::NotAFolder), "76 76 76 ");
  EXPECT_EQ(numbers(Kind::AccessDenied), "70 70 70 ");
  EXPECT_EQ(numbers(Kind::InUse), "70 70 70 ");
  EXPECT_EQ(numbers(Kind::ReadOnlyDisk), "70 70 70 ");
  EXPECT_EQ(numbers(Kind::DiskFull), "61 61 61 ");
  EXPECT_EQ(numbers(Kind::QuotaReached), "61 61 61 ");
  EXPECT_EQ(numbers(Kind::DiskFailed), "57 57 57 ");
  EXPECT_EQ(numbers(Kind::OutOfMemory), "7 7 7 ");
  EXPECT_EQ(numbers(Kind::TooLong), "7 7 7 ");
  EXPECT_EQ(numbers(Kind::NotAFile), "75 75 75 ");
  EXPECT_EQ(numbers(Kind::AlreadyExists), "75 75 75 ");
  EXPECT_EQ(numbers(Kind::Other), "75 75 75 ");
}

TEST(FileError, NamesThePathAndKeepsTheFailure) {
  try {
    RaiseFileError({Kind::DiskFull, 28}, Subject::File, u"C:\\a.mp3");
  } catch (const FileError& error) {
    EXPECT_EQ(error.Number(), 61);
    EXPECT_TEXT(error.Description(), u"Disk full: C:\\a.mp3");
    EXPECT_EQ(error.Failure().kind, Kind::DiskFull);
    EXPECT_EQ(error.Failure().code, 28);
  }
}

}  // namespace
}  // namespace norvo
