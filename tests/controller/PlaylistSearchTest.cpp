#include "controller/PlaylistSearch.h"

#include "support/LibraryTest.h"

namespace norvo {
namespace {

class PlaylistSearchTest : public LibraryTest {
 protected:
  void AddFiles(const std::vector<StringView>& paths) {
    for (const StringView path : paths) platform->AddFile(path, "x");
  }
  Lines Walk(StringView folder) {
    std::vector<String> found;
    GetFolders(component, folder, found);
    return Utf8(found);
  }
};

TEST_F(PlaylistSearchTest, FindsPlaylistsWhateverTheirCase) {
  AddFiles({u"C:\\a.m3u", u"C:\\B.PLS", u"C:\\c.Asx", u"C:\\d.mp3", u"C:\\em3u", u"C:\\f.m3u.bak",
            u"C:\\MIX.M3U"});
  const Lines found = {"C:\\a.m3u", "C:\\B.PLS", "C:\\c.Asx", "C:\\MIX.M3U"};
  EXPECT_EQ(Walk(u"C:\\"), found);
  EXPECT_EQ(Walk(u"C:"), found);
  EXPECT_EQ(Utf8(SearchDrive(component, u'C')), found);
}

TEST_F(PlaylistSearchTest, AFolderIsListedWholeBeforeItsSubFoldersAreEntered) {
  AddFiles({u"C:\\a\\1.m3u", u"C:\\a\\b\\2.m3u", u"C:\\a\\b\\c\\3.m3u", u"C:\\a\\d\\4.m3u",
            u"C:\\a\\z.m3u"});
  const Lines found = {"C:\\a\\1.m3u", "C:\\a\\z.m3u", "C:\\a\\b\\2.m3u", "C:\\a\\b\\c\\3.m3u",
                       "C:\\a\\d\\4.m3u"};
  EXPECT_EQ(Walk(u"C:\\a"), found);
  EXPECT_EQ(Utf8(SearchNow(component, u"C:\\a", u"*.m3u")), found);
}

TEST_F(PlaylistSearchTest, AppendsToWhatWasFoundBefore) {
  AddFiles({u"C:\\a\\1.m3u"});
  std::vector<String> found{u"before"};
  GetFolders(component, u"C:\\a", found);
  EXPECT_EQ(Utf8(found), Lines({"before", "C:\\a\\1.m3u"}));
}

struct SkipRow {
  StringView folder;
  bool walked;
  bool searched;
};

TEST_F(PlaylistSearchTest, TheTwoWalksSkipDifferentFolders) {
  constexpr SkipRow kRows[] = {
      {u"Temporary Internet Files", false, false},
      {u"TEMPORARY INTERNET FILES", false, false},
      {u"My Temporary Internet Files", true, true},
      {u"Recycled", false, false},
      {u"recycler", false, false},
      {u"Recycle Bin", false, true},
      {u"$Recycle.Bin", true, true},
      {u"System Volume Information", true, false},
      {u"driver.sys", false, true},
      {u"DRIVER.SYS", false, true},
      {u"Music", true, true},
  };
  for (const SkipRow& row : kRows) {
    const String path = u"C:\\root\\" + String(row.folder) + u"\\deep\\a.m3u";
    platform->AddFile(path, "x");
    EXPECT_EQ(Walk(u"C:\\root").size(), row.walked ? 1u : 0u) << Utf8(row.folder);
    EXPECT_EQ(SearchNow(component, u"C:\\root", u"*.m3u").size(), row.searched ? 1u : 0u)
        << Utf8(row.folder);
    platform->Files().RemoveFile(path);
  }
}

TEST_F(PlaylistSearchTest, TheWalkSkipsFilesByTheSameNames) {
  AddFiles({u"C:\\root\\Recycle me.m3u", u"C:\\root\\a.m3u"});
  EXPECT_EQ(Walk(u"C:\\root"), Lines({"C:\\root\\a.m3u"}));
  EXPECT_EQ(SearchNow(component, u"C:\\root", u"*.m3u").size(), 2u);
}

TEST_F(PlaylistSearchTest, AFolderNamedLikeAPlaylistIsAFolder) {
  AddFiles({u"C:\\root\\list.m3u\\a.pls"});
  EXPECT_EQ(Walk(u"C:\\root"), Lines({"C:\\root\\list.m3u\\a.pls"}));
  EXPECT_EQ(Utf8(SearchNow(component, u"C:\\root", u"*.m3u,*.pls")),
            Lines({"C:\\root\\list.m3u\\a.pls"}));
}

TEST_F(PlaylistSearchTest, AFolderThatCannotBeListedIsLoggedAndTheNextIsWalked) {
  AddFiles({u"C:\\root\\a\\1.m3u", u"C:\\root\\b\\2.m3u", u"C:\\root\\c\\3.m3u"});
  platform->Files().Deny(u"C:\\root\\b");
  EXPECT_EQ(Walk(u"C:\\root"), Lines({"C:\\root\\a\\1.m3u", "C:\\root\\c\\3.m3u"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GetFolders->Error: <70 - Permission denied> !Unexpected "
                              "Error in C:\\root\\b\\"}));
}

TEST_F(PlaylistSearchTest, ASearchLogsAFolderThatCannotBeListedAndGoesOn) {
  AddFiles({u"C:\\root\\a\\1.m3u", u"C:\\root\\b\\2.m3u", u"C:\\root\\c\\3.m3u"});
  platform->Files().Deny(u"C:\\root\\b");
  EXPECT_EQ(Utf8(SearchNow(component, u"C:\\root", u"*.m3u")),
            Lines({"C:\\root\\a\\1.m3u", "C:\\root\\c\\3.m3u"}));
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::SearchNow -> Permission denied"}));
}

TEST_F(PlaylistSearchTest, AMissingRootIsLogged) {
  EXPECT_EQ(Walk(u"C:\\gone"), Lines());
  EXPECT_EQ(Utf8(SearchNow(component, u"X:\\", u"*.m3u")), Lines());
  EXPECT_EQ(Utf8(log), Lines({"HelperMan::GetFolders->Error: <76 - Path not found> !Unexpected "
                              "Error in C:\\gone\\",
                              "HelperMan::SearchNow -> Path not found"}));
}

TEST_F(PlaylistSearchTest, EveryPatternOfTheListIsTried) {
  AddFiles({u"C:\\r\\a.x", u"C:\\r\\b.y", u"C:\\r\\c.z"});
  EXPECT_EQ(Utf8(SearchNow(component, u"C:\\r\\", u"*.x,*.Z")),
            Lines({"C:\\r\\a.x", "C:\\r\\c.z"}));
  EXPECT_EQ(Utf8(SearchNow(component, u"C:\\r\\", u"")), Lines());
}

TEST_F(PlaylistSearchTest, ADeepTreeIsWalkedToItsEnd) {
  String path = u"C:";
  for (int i = 0; i < 300; ++i) path += u"\\d";
  platform->AddFile(path + u"\\a.m3u", "x");
  EXPECT_EQ(Walk(u"C:\\").size(), 1u);
  EXPECT_EQ(SearchDrive(component, u'C').size(), 1u);
}

}  // namespace
}  // namespace norvo
