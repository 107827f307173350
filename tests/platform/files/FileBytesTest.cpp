#include "platform/files/FileBytes.h"

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class FileBytesTest : public FilesTest {
 protected:
  /// As text; counts the bytes that were told.
  std::string Compare(std::uint64_t size) {
    told_ = 0;
    const FileResult<bool> same =
        SameBytes(Open("left"), Open("right"), size, [this](std::uint64_t more) { told_ += more; });
    return !same ? "failed" : *same ? "same" : "other";
  }

  std::uint64_t told_ = 0;
};

TEST_F(FileBytesTest, AWholeFileIsReadUpToTheLimitAndNotAByteMore) {
  const std::string bytes(200000, 'x');
  Put(At("a"), bytes);
  Put(At("empty"), "");
  EXPECT_EQ(*ReadWhole(Open("a"), bytes.size()), bytes);
  EXPECT_EQ(ReadWhole(Open("a"), bytes.size() - 1).Failure().kind, Kind::TooLong);
  EXPECT_EQ(*ReadWhole(Open("empty"), 0), "");
}

TEST_F(FileBytesTest, AFolderIsNoFile) {
  EXPECT_EQ(ReadWhole(Open(""), std::size_t{1} << 40).Failure().kind, Kind::NotAFile);
}

TEST_F(FileBytesTest, ASparseFileIsAsLargeAsItSays) {
  Put(At("a"), "");
  std::filesystem::resize_file(At("a"), std::uintmax_t{1} << 30);
  EXPECT_EQ(ReadWhole(Open("a"), 1000).Failure().kind, Kind::TooLong);
}

TEST_F(FileBytesTest, FilesAreTheSameWhenAllTheirBytesAre) {
  std::string bytes(300000, 'x');
  Put(At("left"), bytes);
  Put(At("right"), bytes);
  EXPECT_EQ(Compare(bytes.size()), "same");
  EXPECT_EQ(told_, bytes.size());
  EXPECT_EQ(Compare(0), "same");
  bytes.back() = 'y';
  Put(At("right"), bytes);
  EXPECT_EQ(Compare(bytes.size()), "other");
  EXPECT_LT(told_, bytes.size());
  EXPECT_EQ(Compare(bytes.size() - 1), "same");
}

TEST_F(FileBytesTest, AFileThatEndsBeforeIsAnother) {
  Put(At("left"), "1234");
  Put(At("right"), "123");
  EXPECT_EQ(Compare(4), "other");
  EXPECT_EQ(Compare(3), "same");
  Put(At("left"), "123");
  EXPECT_EQ(Compare(4), "other") << "both end before";
}

TEST_F(FileBytesTest, WhatCannotBeReadIsNotCompared) {
  std::filesystem::create_directory(At("left"));
  Put(At("right"), "1");
  EXPECT_EQ(Compare(1), "failed");
}

}  // namespace
}  // namespace norvo
