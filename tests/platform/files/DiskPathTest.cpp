#include "platform/files/DiskPath.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(DiskPath, NamesAreJoinedByASlash) {
  EXPECT_EQ(JoinDiskPath("a/b", "c"), "a/b/c");
  EXPECT_EQ(JoinDiskPath("", "c"), "c");
}

TEST(DiskPath, FallsIntoItsFolderAndItsLastName) {
  EXPECT_EQ(LeafOf("a/b/c"), "c");
  EXPECT_EQ(ParentOf("a/b/c"), "a/b");
  EXPECT_EQ(LeafOf("c"), "c");
  EXPECT_EQ(ParentOf("c"), "");
}

TEST(DiskPath, LiesWithinFoldersAndNotBesideThem) {
  EXPECT_TRUE(LiesWithin("/a/b", "/a"));
  EXPECT_TRUE(LiesWithin("/a", "/a"));
  EXPECT_TRUE(LiesWithin("/a", ""));
  EXPECT_FALSE(LiesWithin("/ab", "/a"));
  EXPECT_FALSE(LiesWithin("/a", "/a/b"));
}

TEST(DiskPath, BeginsWithWhatNamesItsDisk) {
  EXPECT_EQ(RootOf("/a/b"), "/");
  EXPECT_EQ(RootOf("E:/Move/a"), "E:/");
  EXPECT_EQ(RootOf("//server/share/a/b"), "//server/share/");
  EXPECT_EQ(RootOf("//server/share"), "//server/share");
}

TEST(DiskPath, GoesThroughTheStandardLibraryUnchanged) {
  for (const char* const path : {"/a/b", "a b, c.", "/M\xC3\xBCsik/\xE2\x82\xAC", ""}) {
    EXPECT_EQ(ToDiskPath(ToSystemPath(path)), path);
  }
}

TEST(DiskPath, IsShownInUtf8AsTheSystemWritesIt) {
  EXPECT_EQ(ShownPath(ToSystemPath("M\xC3\xBCsik")), "M\xC3\xBCsik");
  const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
  EXPECT_EQ(ShownPath(ToSystemPath("a") / "b"), "a" + separator + "b");
  EXPECT_EQ(ShownPath(ToSystemPath("a/b")), "a" + separator + "b");
}

TEST(DiskPath, IsMadeFullUnlessItIsNone) {
  EXPECT_EQ(FullSystemPath("a"), std::filesystem::current_path() / "a");
  EXPECT_EQ(FullSystemPath(std::filesystem::current_path()), std::filesystem::current_path());
  EXPECT_EQ(FullSystemPath(""), "");
}

}  // namespace
}  // namespace norvo
