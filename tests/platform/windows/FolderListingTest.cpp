#include "ScratchFolder.h"
#include "support/windows/Junction.h"

namespace norvo {
namespace {

using FolderListingTest = ScratchFolder;

TEST_F(FolderListingTest, ListsSubFoldersAndFiles) {
  MakeFolder(u"Music");
  MakeFolder(u"Music\\Sub.x");
  Put(u"Music\\b.mp3", "");
  Put(u"Music\\Ä 音楽.m3u", "");
  Put(u"Music\\Sub.x\\c", "");
  EXPECT_EQ(List(Path(u"Music")), (Lines{"Sub.x/", "b.mp3", "Ä 音楽.m3u"}));
  EXPECT_EQ(List(Path(u"MUSIC\\")), (Lines{"Sub.x/", "b.mp3", "Ä 音楽.m3u"}));
}

TEST_F(FolderListingTest, EndingsChooseFilesAndNeverFolders) {
  MakeFolder(u"folder");
  for (const StringView name : {u"a.M3U", u"b.m3u8", u"m3u", u"ä.asx"}) Put(name, "");
  EXPECT_EQ(List(Path(u""), {u".m3u", u".ASX"}), (Lines{"a.M3U", "folder/", "ä.asx"}));
}

TEST_F(FolderListingTest, HiddenFilesAreListedToo) {
  Put(u"a.mp3", "");
  ASSERT_TRUE(::SetFileAttributesW(ToWide(Path(u"a.mp3")), FILE_ATTRIBUTE_HIDDEN));
  EXPECT_EQ(List(Path(u"")), Lines{"a.mp3"});
}

TEST_F(FolderListingTest, ManyNamesAreAllListed) {
  for (int i = 0; i < 1000; ++i) Put(u"a song with a name of its own " + FormatInteger(i), "");
  EXPECT_EQ(List(Path(u"")).size(), 1000u);
}

TEST_F(FolderListingTest, AnEmptyFolderIsNoError) {
  EXPECT_EQ(List(Path(u"")), Lines{});
}

TEST_F(FolderListingTest, ListingWhatIsNoFolderFails) {
  Put(u"file", "");
  EXPECT_EQ(ErrorOf([&] { List(Path(u"missing")); }), 76);
  EXPECT_EQ(ErrorOf([&] { List(Path(u"file")); }), 76);
  EXPECT_EQ(ErrorOf([&] { List(Path(u"fi*")); }), 76);
  EXPECT_EQ(ErrorOf([&] { List(MissingDrive() + u"\\"); }), 76);
  EXPECT_EQ(ErrorOf([&] { List(u""); }), 76);
  try {
    List(Path(u"missing"));
  } catch (const RunTimeError& failure) {
    EXPECT_NE(failure.Description().find(Path(u"missing")), String::npos);
  }
}

TEST_F(FolderListingTest, NamesThatNoPathCanReachCostOneWarningEach) {
  Put(u"good.mp3", "x");
  Put(u"bad.mp3.", "x");
  EXPECT_EQ(List(Path(u"")), Lines{"good.mp3"});
  ASSERT_EQ(warnings_.size(), 1u);
  EXPECT_NE(warnings_[0].find(u"bad.mp3."), String::npos);
  List(Path(u""));
  EXPECT_EQ(warnings_.size(), 1u) << "the same name is not reported again";
}

TEST_F(FolderListingTest, AJunctionIsNotListedButLeadsOn) {
  MakeFolder(u"real");
  Put(u"real\\a.mp3", "");
  MakeFolder(u"alias");
  if (!MakeJunction(ToWide(Path(u"alias")), ToWide(Path(u"real")))) {
    GTEST_SKIP() << "this disk knows no junctions";
  }
  EXPECT_EQ(List(Path(u"")), Lines{"real/"});
  EXPECT_EQ(List(Path(u"alias")), Lines{"a.mp3"});
  EXPECT_TRUE(Files().FolderExists(Path(u"alias")));
}

}  // namespace
}  // namespace norvo
