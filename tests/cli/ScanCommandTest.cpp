#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

class ScanCommandTest : public ProgramTest {
 protected:
  Outcome Scan(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"scan", "--machine", Machine()});
    return RunProgram(more);
  }
};

TEST_F(ScanCommandTest, ListsThePlaylistsByTypeAndKeepsTheList) {
  WriteMix();
  WriteFile(Place("C/Music/Old.pls"), "[playlist]\r\nNumberOfEntries=0\r\nVersion=2\r\n");
  WriteFile(Place("C/Music/Bare.m3u"), "C:\\Music\\One.mp3\r\n");
  Init();
  const Outcome outcome = Scan();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "(WINAMP_M3U): 1\n  C:\\Music\\Mix.m3u\n")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "(WINAMP_PLS): 1\n  C:\\Music\\Old.pls\n"));
  EXPECT_TRUE(Holds(outcome.out, "(MMJB_M3U): 1\n  C:\\Music\\Bare.m3u\n"));
  EXPECT_TRUE(Holds(outcome.out, "Playlists found: 3\n"));
  EXPECT_TRUE(Holds(ReadFile(DataArea() / "PlayLists.txt"), "C:\\Music\\Mix.m3u"));
  EXPECT_FALSE(fs::exists(DataArea() / "Mix.ini"));
}

TEST_F(ScanCommandTest, ReportsAsADocument) {
  WriteMix();
  Init();
  const auto document = Scan({"--json"}).Document();
  ASSERT_EQ(document.at("playlists").size(), 1u);
  EXPECT_EQ(document.at("playlists")[0].at("path"), "C:\\Music\\Mix.m3u");
  EXPECT_EQ(document.at("playlists")[0].at("type"), 3);
  EXPECT_EQ(document.at("byType").at("WINAMP_M3U"), 1);
  EXPECT_EQ(document.at("byType").at("SONIQUE_PLS"), 0);
  EXPECT_EQ(document.at("listFile").at("system"), (DataArea() / "PlayLists.txt").string());
}

TEST_F(ScanCommandTest, ListsOfNoKnownTypeAreTold) {
  WriteFile(Place("C/Music/Odd.m3u"), "only a name\r\n");
  Init();
  const Outcome outcome = Scan();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(
      Holds(outcome.err, "C:\\Music\\Odd.m3u: skipped: its first lines tell no playlist type"))
      << outcome.err;
  EXPECT_EQ(outcome.out,
            "Playlists found: 0\nPlaylists skipped: 1\n"
            "  C:\\Music\\Odd.m3u: its first lines tell no playlist type\n");
  const nlohmann::json row = {{"path", "C:\\Music\\Odd.m3u"},
                              {"reason", "its first lines tell no playlist type"},
                              {"reasonCode", "unknownType"}};
  EXPECT_EQ(Scan({"--json"}).Document().at("skipped"), nlohmann::json::array({row}));
}

TEST_F(ScanCommandTest, OnADiskToWhichNothingIsWrittenNoLogIsNamed) {
  WriteFile(Place("C/Music/Mix.m3u"), "#EXTM3U\r\n");
  const fs::path disk = Place("C");
  const Outcome outcome = RunProgram({"scan", "--machine", disk.string(), "--log"});
  EXPECT_FALSE(Holds(outcome.err, "The log is")) << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, "nothing was written to it, and no log either")) << outcome.err;
}

TEST_F(ScanCommandTest, ADiskWithoutPlaylistsIsNoFailure) {
  Init();
  const Outcome outcome = Scan();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "Playlists found: 0\n");
}

TEST_F(ScanCommandTest, ANameThatIsNoTextIsAWarning) {
  Init();
  WriteFile(Place("C/Music") / "bad\xFF.m3u", "#EXTM3U\r\n");
  const Outcome outcome = Scan();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "Warning: C:\\Music")) << outcome.err;
}

TEST_F(ScanCommandTest, AScanThatCannotKeepItsListEndsWithTwo) {
  WriteMix();
  Init();
  WriteFile(DataArea(), "a file where the folder should be");
  const Outcome outcome = Scan();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(Holds(outcome.err, "The scan failed")) << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, "KVs")) << outcome.err;
}

TEST_F(ScanCommandTest, QuietSaysNothing) {
  WriteMix();
  Init();
  const Outcome outcome = Scan({"--quiet"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_TRUE(fs::exists(DataArea() / "PlayLists.txt"));
}

TEST_F(ScanCommandTest, WritesTheLogWhereItSays) {
  WriteMix();
  Init();
  const Outcome outcome = Scan({"--log"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_TRUE(Holds(outcome.err, Place("C/Norvo/VBLog.txt").string())) << outcome.err;
  EXPECT_EQ(ReadFile(Place("C/Norvo/VBLog.txt")), "Starting Drive Scan...\r\n");
  EXPECT_EQ(Scan({"--log", "--json"}).Document().at("log").at("machine"), "C:\\Norvo\\VBLog.txt");
}

TEST_F(ScanCommandTest, SaysThatALogHasNoFolder) {
  Init();
  fs::remove_all(Place("C/Norvo"));
  const Outcome outcome = Scan({"--log"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "C:\\Norvo\\ is missing")) << outcome.err;
}

TEST_F(ScanCommandTest, ControlCharactersOfNamesNeverReachTheReport) {
  Init();
  WriteFile(Place("C/Music") / "clear\xC2\x9B.m3u", "#EXTM3U\r\n");
  const Outcome outcome = Scan();
  EXPECT_FALSE(Holds(outcome.out + outcome.err, "\xC2\x9B"));
}

}  // namespace
}  // namespace norvo::cli
