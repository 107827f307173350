#include <cstdlib>

#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

using ShowCommandTest = ProgramTest;

TEST_F(ShowCommandTest, PrintsTheEntriesOfAMachinePath) {
  WriteMix();
  Init();
  const Outcome outcome = RunProgram({"show", "--machine", Machine(), "c:\\music\\MIX.m3u"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.out, "M3U of WinAmp")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "Artist"));
  EXPECT_TRUE(Holds(outcome.out, "1  0 drive")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "2  4 name")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "1000  C:\\Music\\One.mp3")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "Entries kept: 2, dropped: 1 (1 no such file)"));
  EXPECT_TRUE(Holds(outcome.err, "left out \"c:\\music\\Three.mp3\": no such file"));
}

TEST_F(ShowCommandTest, LeavesTheMachineAsItWas) {
  WriteMix();
  Init();
  const auto before = Snapshot(Machine());
  RunProgram({"show", "--machine", Machine(), "C:\\Music\\Mix.m3u"});
  RunProgram({"show", Place("C/Music/Mix.m3u").string()});
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(ShowCommandTest, AMachineWithoutSettingsWorksAndNamesInit) {
  WriteMix();
  const auto before = Snapshot(Machine());
  const Outcome outcome =
      RunProgram({"show", "--machine", Machine(), "C:\\Music\\Mix.m3u", "--json"});
  EXPECT_TRUE(Holds(outcome.err, "norvo-playlists init")) << outcome.err;
  EXPECT_EQ(outcome.Document().at("entries").size(), 2u);
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(ShowCommandTest, FindsTheMachineOfASystemPath) {
  WriteMix();
  const auto document =
      RunProgram({"show", Place("C/Music/Mix.m3u").string(), "--json"}).Document();
  EXPECT_EQ(document.at("path"), "C:\\Music\\Mix.m3u");
  EXPECT_EQ(document.at("typeName"), "WINAMP_M3U");
  EXPECT_EQ(document.at("entries").size(), 2u);
  EXPECT_EQ(document.at("entries")[0].at("size"), 1000);
  EXPECT_EQ(document.at("dropped")[0].at("reasonCode"), "missing");
}

TEST_F(ShowCommandTest, AFolderOfOneLetterWithinTheMusicIsNoDrive) {
  WriteFile(Place("C/Music/A/Abba/Mix.m3u"), "#EXTM3U\r\nSong.mp3\r\n");
  WriteFile(Place("C/Music/A/Abba/Song.mp3"), "x");
  const auto document =
      RunProgram({"show", Place("C/Music/A/Abba/Mix.m3u").string(), "--json"}).Document();
  EXPECT_EQ(document.at("path"), "C:\\Music\\A\\Abba\\Mix.m3u");
  EXPECT_EQ(document.at("entries").size(), 1u);
}

TEST_F(ShowCommandTest, FindsTheMachineThroughItsSettings) {
  WriteMix();
  fs::create_directories(Root() / "elsewhere");
  WriteFile(Place("machine.ini"), "[Drives]\r\nC=fixed\r\nE=fixed,../machine/disc\r\n");
  WriteFile(Place("disc/Album/Mix.m3u"), "#EXTM3U\r\nSong.mp3\r\nC:\\Music\\One.mp3\r\n");
  WriteFile(Place("disc/Album/Song.mp3"), "x");
  const auto document =
      RunProgram({"show", Place("disc/Album/Mix.m3u").string(), "--json"}).Document();
  EXPECT_EQ(document.at("path"), "E:\\Album\\Mix.m3u");
  EXPECT_EQ(document.at("entries").size(), 2u);
}

TEST_F(ShowCommandTest, AFileOfNoMachineIsReadInItsOwnFolder) {
  WriteFile(Root() / "my music/Mix.m3u", "#EXTM3U\r\n#EXTINF:61,Ann - One\r\nOne.mp3\r\n");
  WriteFile(Root() / "my music/One.mp3", "x");
  const auto before = Snapshot(Root());
  const Outcome outcome = RunProgram({"show", (Root() / "my music/Mix.m3u").string()});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "C:\\One.mp3")) << outcome.out;
  EXPECT_EQ(Snapshot(Root()), before);
}

TEST_F(ShowCommandTest, LeavesNoTemporaryFolder) {
  WriteMix();
  const fs::path temporary = Root() / "temporary";
  fs::create_directories(temporary);
  const char* const before = std::getenv("TMPDIR");
  const std::string restored = before == nullptr ? "" : before;
  ::setenv("TMPDIR", temporary.c_str(), 1);
  const Outcome outcome = RunProgram({"show", "--machine", Machine(), "C:\\Music\\Mix.m3u"});
  fs::remove(temporary);
  const Outcome without = RunProgram({"show", "--machine", Machine(), "C:\\Music\\Mix.m3u"});
  ::unsetenv("TMPDIR");
  if (before != nullptr) ::setenv("TMPDIR", restored.c_str(), 1);
  EXPECT_EQ(outcome.code, 1);
  EXPECT_FALSE(fs::exists(temporary)) << "something was left in it";
  EXPECT_EQ(without.code, 1) << "the system's own folder serves instead: " << without.err;
}

TEST_F(ShowCommandTest, TakesTheTypeThatIsNamed) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/list.txt"), "One.mp3\r\nC:\\Music\\One.mp3\r\n");
  const std::string path = "C:\\Music\\list.txt";
  const Outcome told = RunProgram({"show", "--machine", Machine(), path, "--type", "6", "--json"});
  EXPECT_EQ(told.code, 0) << told.err;
  EXPECT_EQ(told.Document().at("entries").size(), 2u);
  EXPECT_EQ(told.Document().at("type"), 6);
}

TEST_F(ShowCommandTest, APlaylistWithoutATypeAsksForOne) {
  WriteFile(Place("C/Music/list.m3u"), "nothing\r\n");
  const Outcome outcome = RunProgram({"show", "--machine", Machine(), "C:\\Music\\list.m3u"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "C:\\Music\\list.m3u: its first lines tell no playlist type"));
  EXPECT_TRUE(Holds(outcome.err, "--type"));
}

TEST_F(ShowCommandTest, OneThatCannotBeReadIsNamedWithoutAskingForAnotherType) {
  Init();
  WriteFile(Place("C/Music/list.m3u"), "#EXTM3U\r\n");
  fs::resize_file(Place("C/Music/list.m3u"), std::uintmax_t{80} * 1024 * 1024);
  const Outcome outcome = RunProgram({"show", "--machine", Machine(), "C:\\Music\\list.m3u"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err,
            "Warning: C:\\Music\\list.m3u: this file cannot be read: File larger than 40 MB\n");
}

TEST_F(ShowCommandTest, AnAsxIsReadAsOne) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/Plain.asx"),
            "<Asx Version = \"3.0\" >\r\n<Entry>\r\n<Title>First</Title>\r\n"
            "<Ref href = \"C:\\Music\\One.mp3\" />\r\n</Entry>\r\n</Asx>\r\n");
  const auto document =
      RunProgram({"show", "--machine", Machine(), "C:\\Music\\Plain.asx", "--json"}).Document();
  EXPECT_EQ(document.at("type"), 1);
  EXPECT_EQ(document.at("entries")[0].at("title"), "First");
}

TEST_F(ShowCommandTest, PathsThatLeadNowhereEndWithTwoAndAreNamed) {
  WriteMix();
  WriteFile(Root() / "other/Mix.m3u", "#EXTM3U\r\n");
  const std::vector<std::vector<std::string>> lines = {
      {"show", "C:\\Music\\Mix.m3u"},
      {"show", "--machine", Machine(), "C:\\Music\\Mux.m3u"},
      {"show", "--machine", Machine(), (Root() / "other/Mix.m3u").string()},
      {"show", (Root() / "absent/Mix.m3u").string()},
      {"show", Root().string()},
  };
  for (const auto& words : lines) {
    const Outcome outcome = RunProgram(words);
    EXPECT_EQ(outcome.code, 2) << ::testing::PrintToString(words);
    EXPECT_TRUE(Holds(outcome.err, words.back())) << outcome.err;
    EXPECT_EQ(outcome.out, "");
  }
}

TEST_F(ShowCommandTest, TheLogGoesToTheMachinesProductFolder) {
  WriteMix();
  Init();
  const Outcome outcome =
      RunProgram({"show", "--machine", Machine(), "C:\\Music\\Mix.m3u", "--log"});
  EXPECT_TRUE(Holds(outcome.err, Place("C/Norvo/VBLog.txt").string())) << outcome.err;
  EXPECT_TRUE(Holds(ReadFile(Place("C/Norvo/VBLog.txt")), "PLAYLIST::ReadM3U, File Not Found: "));
}

}  // namespace
}  // namespace norvo::cli
