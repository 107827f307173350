#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

class RestoreCommandTest : public ProgramTest {
 protected:
  static constexpr const char* kFolder = R"(C:\My Documents\Norvo Media\PlayLists\)";

  Outcome Restore(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"restore", "--machine", Machine()});
    return RunProgram(more);
  }
  /// A neutral file in the documents folder; `type` and `count` as they are to stand there.
  void WriteNeutral(const std::string& name, const std::string& type = "3",
                    const std::string& count = "1") const {
    WriteFile(Place("C/My Documents/Kept/" + name + ".ini"),
              "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + name +
                  "\r\nPlaylistType=" + type + "\r\nOriginalFileName=" + name +
                  ".m3u\r\nTotalSongs=" + count +
                  "\r\n\r\n[Entry 1 Properties]\r\nArtist=Ann\r\nFileName=One.mp3\r\n"
                  "HasExtendedInfo=True\r\nSongName=One\r\nSourceURL=C:\\Music\\One.mp3\r\n"
                  "URLType=0\r\n");
  }
  void InstallMediaPlayer() const {
    WriteFile(Place("C/WMP/wmplayer.exe"), "x");
    WriteFile(Place("registry.reg"),
              "Windows Registry Editor Version 5.00\r\n\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App "
              "Paths\\wmplayer.exe]\r\n\"Path\"=\"C:\\\\WMP\\\\\"\r\n\r\n"
              "[HKEY_CURRENT_USER\\Software\\Microsoft\\MediaPlayer\\Player\\Settings]\r\n");
  }
  fs::path Lists() const { return Place("C/My Documents/Norvo Media/PlayLists"); }
};

TEST_F(RestoreCommandTest, TellsTheFilesPerPlayerAndTheSettings) {
  InstallMediaPlayer();
  Init();
  WriteNeutral("Mix");
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const std::string folder = kFolder;
  const std::string key = "Software\\Microsoft\\MediaPlayer\\Player\\Settings, ";
  EXPECT_EQ(outcome.out,
            "Neutral files restored:  1\n"
            "  ASX of Windows Media Player:  1\n"
            "  M3U of WinAmp:                1\n"
            "  PLS of Sonique:               1\n"
            "  M3U of MusicMatch Jukebox:    1\n"
            "    " +
                folder +
                "Windows Media Player\\Mix.asx\n"
                "    " +
                folder +
                "WinAmp\\Mix.m3u\n"
                "    " +
                folder +
                "MusicMatch Jukebox\\Mix.m3u\n"
                "    " +
                folder +
                "Sonique\\Mix.pls\n"
                "Player settings changed: 2\n"
                "  Windows Media Player: " +
                key + "OpenDir = " + folder +
                "Windows Media Player\n"
                "  Windows Media Player: " +
                key + "SaveAsDir = " + folder + "Windows Media Player\n");
  EXPECT_TRUE(Holds(ReadFile(Lists() / "WinAmp/Mix.m3u"),
                    "#EXTM3U\r\n#EXTINF:0,Ann - One\r\n"
                    "C:\\My Documents\\Norvo Media\\Music\\Ann\\One.mp3\r\n"));
}

TEST_F(RestoreCommandTest, ReportsAsADocument) {
  InstallMediaPlayer();
  Init();
  WriteNeutral("Mix");
  WriteNeutral("Pop");
  const auto document = Restore({"--json"}).Document();
  EXPECT_EQ(document.at("command"), "restore");
  EXPECT_EQ(document.at("exitCode"), 0);
  EXPECT_EQ(document.at("neutralFiles"),
            (std::vector<std::string>{R"(C:\My Documents\Kept\Mix.ini)",
                                      R"(C:\My Documents\Kept\Pop.ini)"}));
  ASSERT_EQ(document.at("natives").size(), 8u);
  const nlohmann::json native = {{"path", kFolder + std::string(R"(Sonique\Mix.pls)")},
                                 {"typeName", "SONIQUE_PLS"},
                                 {"whole", true},
                                 {"replaced", 0}};
  EXPECT_EQ(document.at("natives")[3], native);
  ASSERT_EQ(document.at("settings").size(), 2u);
  EXPECT_EQ(document.at("settings")[0].at("player"), "Windows Media Player");
  EXPECT_EQ(document.at("settings")[0].at("value"), kFolder + std::string("Windows Media Player"));
}

TEST_F(RestoreCommandTest, NamesThatAListCannotHoldAreTold) {
  Init();
  // UTF-16 with its mark: "\u65e5", which no 8-bit list can hold.
  WriteNeutral("Mix");
  const fs::path file = Place("C/My Documents/Kept/Mix.ini");
  std::string wide = "\xFF\xFE";
  for (const char byte : ReadFile(file)) wide += std::string{byte, '\0'};
  const std::string artist("A\0n\0n\0", 6);
  wide.replace(wide.find(artist), artist.size(), std::string("\xE5\x65n\0n\0", 6));
  WriteFile(file, wide);
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1) << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, std::string(kFolder) + "MusicMatch Jukebox\\Mix.m3u: 1 line of it "
                                                        "cannot hold all letters of their names"))
      << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, "WinAmp\\Mix.m3u: 2 lines of it")) << outcome.err;
  EXPECT_EQ(Restore({"--json"}).Document().at("natives")[2].at("replaced"), 1);
}

TEST_F(RestoreCommandTest, ASecondRunWritesASecondSet) {
  Init();
  WriteNeutral("Mix");
  EXPECT_EQ(Restore().code, 0);
  const std::string first = ReadFile(Lists() / "WinAmp/Mix.m3u");
  EXPECT_EQ(Restore().code, 0);
  EXPECT_EQ(ReadFile(Lists() / "WinAmp/Mix1.m3u"), first);
  EXPECT_EQ(ReadFile(Lists() / "WinAmp/Mix.m3u"), first);
  EXPECT_FALSE(fs::exists(Place("C/My Documents/Norvo Media/KVs/Restored.txt")));
}

TEST_F(RestoreCommandTest, WithoutNeutralFilesItSaysWhereTheyWereSoughtAndWhereTheyAreWritten) {
  Init();
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1);
  const std::string documents = Place("C/My Documents").string();
  EXPECT_EQ(
      outcome.err,
      "Nothing to restore: no neutral file in C:\\My Documents (" + documents +
          ") and below. collect would have put them into C:\\My Documents\\Norvo Media\\KVs\\ (" +
          documents +
          "/Norvo Media/KVs); those of another machine belong anywhere in the former.\n");
  EXPECT_EQ(outcome.out, "Neutral files restored:  0\nPlayer settings changed: 0\n");
  EXPECT_FALSE(fs::exists(Lists()));
}

TEST_F(RestoreCommandTest, ANeutralFileThatCannotBeReadIsNamedAndNotSaidToBeMissing) {
  Init();
  WriteNeutral("Mix");
  fs::resize_file(Place("C/My Documents/Kept/Mix.ini"), std::uintmax_t{80} * 1024 * 1024);
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(
      outcome.err,
      "Warning: C:\\My Documents\\Kept\\Mix.ini: this file cannot be read. Close the program that "
      "uses it, see that it may be read and written, and run again\n");
  EXPECT_TRUE(outcome.out.starts_with("Neutral files restored:  0\n")) << outcome.out;
}

TEST_F(RestoreCommandTest, AMachineWithoutSettingsIsRefused) {
  WriteNeutral("Mix");
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(Holds(outcome.err, "norvo-playlists init --machine DIR")) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_FALSE(fs::exists(Lists()));
}

TEST_F(RestoreCommandTest, ANeutralFileOfNoKnownTypeIsTold) {
  Init();
  WriteNeutral("Mix");
  WriteNeutral("None", "0");
  WriteNeutral("Odd", "7");
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1);
  const std::string none = R"(C:\My Documents\Kept\None.ini)";
  const std::string odd = R"(C:\My Documents\Kept\Odd.ini)";
  EXPECT_EQ(outcome.err, none + ": it tells no known type of playlist\n" + odd +
                             ": it tells no known type of playlist\n");
  EXPECT_TRUE(Holds(outcome.out, "Neutral files restored:  3\n"));
  EXPECT_TRUE(fs::exists(Lists() / "WinAmp/Mix.m3u"));
  EXPECT_FALSE(fs::exists(Lists() / "WinAmp/Odd.m3u"));
}

TEST_F(RestoreCommandTest, ANeutralFileWithoutReadableEntriesIsTold) {
  Init();
  WriteNeutral("Empty", "3", "0");
  WriteNeutral("Torn", "3", "none");  // the reading ends at what is no number
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err,
            "C:\\My Documents\\Kept\\Empty.ini: no entry of it could be read\n"
            "C:\\My Documents\\Kept\\Torn.ini: it tells no known type of playlist\n");
}

TEST_F(RestoreCommandTest, WhatCannotBeWrittenIsTold) {
  Init();
  WriteNeutral("Mix");
  WriteFile(Lists() / "Sonique", "in the way");
  const Outcome outcome = Restore();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, kFolder + std::string("Sonique\\Mix.pls: not written to its end: "
                                                       "see that the disk is writable and not "
                                                       "full\n")))
      << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "  PLS of Sonique:               0\n")) << outcome.out;
  EXPECT_EQ(ReadFile(Lists() / "Sonique"), "in the way");
}

TEST_F(RestoreCommandTest, QuietSaysNothing) {
  Init();
  WriteNeutral("Mix");
  const Outcome outcome = Restore({"--quiet"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_TRUE(fs::exists(Lists() / "WinAmp/Mix.m3u"));
}

}  // namespace
}  // namespace norvo::cli
