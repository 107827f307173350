#include "move/ScanPlaylists.h"

#include <gtest/gtest.h>

#include "move/WatchedWork.h"

namespace norvo {
namespace {

class ScanPlaylistsTest : public ::testing::Test {
 protected:
  ScanPlaylistsTest() {
    machines.from->ConfigureProduct();
    machines.AddMix();
    machines.AddWeb();
  }
  ScanResult Scan(WatchedWork& watched, bool log = false) {
    return ScanPlaylists(machines.from, {log}, watched);
  }

  MemoryMove machines;
  WatchedWork heard;
};

TEST_F(ScanPlaylistsTest, GivesThePlaylistsInTheOrderOfTheQueueAndLeavesTheirList) {
  machines.AddPlaylist(u"D:\\Late.m3u", {"http://example.com/"});
  const ScanResult scan = Scan(heard);
  ASSERT_EQ(scan.playlists.size(), 3u);
  EXPECT_TEXT(scan.playlists[0].path, u"C:\\Music\\Mix.m3u");
  EXPECT_EQ(scan.playlists[0].type, 3);
  EXPECT_TEXT(scan.playlists[1].path, u"D:\\Late.m3u");  // those of one type together
  EXPECT_EQ(scan.playlists[1].type, 3);
  EXPECT_TEXT(scan.playlists[2].path, u"C:\\Music\\Web.pls");
  EXPECT_EQ(scan.playlists[2].type, 4);
  EXPECT_TEXT(scan.listFile, u"C:\\My Documents\\Norvo Media\\KVs\\PlayLists.txt");
  EXPECT_TRUE(machines.from->HasFile(scan.listFile));
  EXPECT_FALSE(scan.cancelled);
  EXPECT_TRUE(scan.warnings.empty());
  EXPECT_EQ(scan.log.path, String());
}

TEST_F(ScanPlaylistsTest, CountsTheFoldersThatItLooksIntoAndTellsOfEach) {
  const ScanResult scan = Scan(heard);
  EXPECT_EQ(heard.Phases(), std::vector<WorkPhase>{WorkPhase::Scanning});
  EXPECT_EQ(scan.folders, heard.steps.size());
  EXPECT_EQ(heard.steps.front().current, "C:\\");
  EXPECT_EQ(heard.steps.back().progress.position, scan.folders);
}

TEST_F(ScanPlaylistsTest, WarnsOfAFolderThatCannotBeListed) {
  machines.from->AddFolder(u"C:\\Private");
  machines.from->Files().Deny(u"C:\\Private");
  const ScanResult scan = Scan(heard);
  EXPECT_EQ(LinesOf(scan.warnings),
            Lines{"old: Library HelperMan::GetAllPlayLists -> Permission denied"});
  EXPECT_EQ(heard.warnings, LinesOf(scan.warnings));
  EXPECT_EQ(scan.playlists.size(), 2u);
}

TEST_F(ScanPlaylistsTest, TellsWhatItHasMetAndNotListed) {
  machines.from->AddFile(u"C:\\Music\\Odd.m3u", "only a name\r\n");
  machines.from->AddFile(u"C:\\Music\\Locked.m3u", "#EXTM3U\r\n");
  machines.from->AddFile(u"C:\\Music\\nom3u", "without a point");
  machines.from->Files().Deny(u"C:\\Music\\Locked.m3u");
  const ScanResult scan = Scan(heard);
  using Reason = SkippedPlaylist::Reason;
  ASSERT_EQ(scan.skipped.size(), 2u);
  EXPECT_TEXT(scan.skipped[0].path, u"C:\\Music\\Locked.m3u");
  EXPECT_EQ(scan.skipped[0].reason, Reason::Unreadable);
  EXPECT_TEXT(scan.skipped[1].path, u"C:\\Music\\Odd.m3u");
  EXPECT_EQ(scan.skipped[1].reason, Reason::UnknownType);
  EXPECT_EQ(scan.playlists.size(), 2u);
}

TEST_F(ScanPlaylistsTest, WarnsWhenTheLogCannotBeWritten) {
  machines.from->AddFile(u"C:\\Norvo\\VBLog.txt", "");
  machines.from->Files().SetReadOnly(u"C:\\Norvo\\VBLog.txt");
  const ScanResult scan = Scan(heard, true);
  EXPECT_EQ(LinesOf(scan.warnings),
            Lines{"old: LogNotWritten C:\\Norvo\\VBLog.txt, detail Permission denied"});
  EXPECT_EQ(scan.log.path, String());
  EXPECT_EQ(heard.logs, Lines());
}

TEST_F(ScanPlaylistsTest, KeepsALogWhenAsked) {
  const ScanResult scan = Scan(heard, true);
  EXPECT_TEXT(scan.log.path, u"C:\\Norvo\\VBLog.txt");
  EXPECT_EQ(heard.logs, Lines{"old: C:\\Norvo\\VBLog.txt"});
  EXPECT_NE(machines.from->Bytes(scan.log.path).find("Starting Drive Scan..."), std::string::npos);
}

TEST_F(ScanPlaylistsTest, WarnsWhenThereIsNoFolderForTheLog) {
  machines.from->Product().SetFolder(u"C:\\Nowhere\\");
  const ScanResult scan = Scan(heard, true);
  EXPECT_EQ(LinesOf(scan.warnings), Lines{"old: NoLogFolder C:\\Nowhere\\"});
  EXPECT_EQ(scan.log.path, String());
  EXPECT_EQ(heard.logs, Lines());
}

TEST_F(ScanPlaylistsTest, CanBeEndedAtAnyFolderWithoutAWarning) {
  const std::size_t folders = Scan(heard).folders;
  for (std::size_t n = 1; n <= folders; ++n) {
    WatchedWork ending(n);
    const ScanResult scan = Scan(ending);
    EXPECT_TRUE(scan.cancelled) << n;
    EXPECT_EQ(ending.steps.size(), n - 1);
    EXPECT_TRUE(scan.warnings.empty()) << n;
    EXPECT_TRUE(scan.playlists.empty()) << n;
  }
  EXPECT_EQ(Scan(heard).playlists.size(), 2u);
}

}  // namespace
}  // namespace norvo
