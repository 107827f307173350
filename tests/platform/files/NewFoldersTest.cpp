#include "platform/files/NewFolders.h"

#include "FilesTest.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

class NewFoldersTest : public FilesTest {};

TEST_F(NewFoldersTest, AFolderIsMadeWithThoseAboveIt) {
  EXPECT_FALSE(MakeFolders(At("a/b/c")));
  EXPECT_TRUE(fs::is_directory(At("a/b/c")));
  EXPECT_FALSE(MakeFolders(At("a/b/c/")));
  EXPECT_FALSE(MakeFolders(At("a/./x/../d")));
  EXPECT_TRUE(fs::is_directory(At("a/d")));
  EXPECT_FALSE(fs::exists(At("a/x")));
}

TEST_F(NewFoldersTest, WhatIsMissingIsToldAndNothingMade) {
  fs::create_directory(At("a"));
  const FileResult<WayToFolder> way = WayTo(At("a/b/c"));
  ASSERT_TRUE(way);
  EXPECT_TRUE(way->nearest.IsOpen());
  EXPECT_EQ(way->missing, (std::vector<std::string>{"b", "c"}));
  EXPECT_TRUE(fs::is_empty(At("a")));
  EXPECT_TRUE(WayTo(At("a"))->missing.empty());
}

TEST_F(NewFoldersTest, AFileInTheWayIsNoFolder) {
  Put(At("file"), "bytes");
  EXPECT_EQ(MakeFolders(At("file")).kind, Kind::NotAFolder);
  EXPECT_TRUE(MakeFolders(At("file/new")));
  EXPECT_EQ(Get(At("file")), "bytes");
}

TEST_F(NewFoldersTest, ALinkLeadsOnAndOneThatLeadsNowhereIsInTheWay) {
  NEEDS_LINKS();
  fs::create_directory_symlink(Beside(""), At("link"));
  EXPECT_FALSE(MakeFolders(At("link/new")));
  EXPECT_TRUE(fs::is_directory(Beside("new")));
  fs::create_directory_symlink(Beside("gone"), At("nowhere"));
  EXPECT_TRUE(MakeFolders(At("nowhere")));
  EXPECT_TRUE(MakeFolders(At("nowhere/new")));
  EXPECT_FALSE(fs::exists(Beside("gone")));
}

}  // namespace
}  // namespace norvo
