#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

class VerifyCommandTest : public ProgramTest {
 protected:
  Outcome Verify(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"verify", "--machine", Machine()});
    return RunProgram(more);
  }
  /// The line at the end.
  static std::string Total(int playlists, int checked, int found) {
    return "Playlists: " + std::to_string(playlists) +
           ", references checked: " + std::to_string(checked) +
           ", found: " + std::to_string(found) + ", missing: " + std::to_string(checked - found) +
           '\n';
  }
  fs::path Lists() const { return Place("C/My Documents/Norvo Media/PlayLists"); }
};

TEST_F(VerifyCommandTest, TellsWhatIsFoundAndWhatIsMissing) {
  WriteMix();
  const Outcome outcome = Verify({R"(C:\Music\Mix.m3u)"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, "C:\\Music\\Mix.m3u: 2 found, 1 missing, 0 addresses\n" + Total(1, 3, 2));
  EXPECT_EQ(outcome.err, "C:\\Music\\Mix.m3u: missing: Three.mp3\n");
}

TEST_F(VerifyCommandTest, AllFoundEndsWithZero) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/A.m3u"),
            "#EXTM3U\r\nOne.mp3\r\nhttp://example.com/\r\nhttps://example.com/\r\n"
            "\\\\server\\share\\x.mp3\r\n");
  WriteFile(Place("C/Music/B.pls"),
            "[playlist]\r\nFile1=C:\\Music\\One.mp3\r\nNumberOfEntries=1\r\nVersion=2\r\n");
  WriteFile(Place("C/Music/C.asx"),
            "<Asx Version = \"3.0\" >\r\n<Entry>\r\n<Ref href = \"c:\\music\\ONE.mp3\" />\r\n"
            "</Entry>\r\n</Asx>\r\n");
  const Outcome outcome = Verify({R"(C:\Music\A.m3u)", R"(C:\Music\B.pls)", R"(C:\Music\C.asx)"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "C:\\Music\\A.m3u: 1 found, 0 missing, 3 addresses\n"
            "C:\\Music\\B.pls: 1 found, 0 missing, 0 addresses\n"
            "C:\\Music\\C.asx: 1 found, 0 missing, 0 addresses\n" +
                Total(3, 3, 3));
}

TEST_F(VerifyCommandTest, ASongThatIsNoMediaToTheLibraryIsFound) {
  WriteFile(Place("C/Music/One.ogg"), "x");
  WriteFile(Place("C/Music/A.m3u"), "C:\\Music\\One.ogg\r\n");
  EXPECT_EQ(Verify({R"(C:\Music\A.m3u)"}).out,
            "C:\\Music\\A.m3u: 1 found, 0 missing, 0 addresses\n" + Total(1, 1, 1));
}

TEST_F(VerifyCommandTest, AListOfMoreLinesThanTheLibraryReadsIsVerifiedToItsEnd) {
  constexpr int kEntries = 11000;  // of three lines each
  WriteSong("One.mp3");
  std::string text = "<Asx Version = \"3.0\" >\r\n";
  for (int i = 1; i <= kEntries; ++i) {
    const char* const name = i == kEntries ? "Last.mp3" : "One.mp3";
    text += "<Entry>\r\n<Ref href = \"C:\\Music\\" + std::string(name) + "\" />\r\n</Entry>\r\n";
  }
  WriteFile(Place("C/Music/Long.asx"), text + "</Asx>\r\n");
  const Outcome outcome = Verify({R"(C:\Music\Long.asx)"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out,
            "C:\\Music\\Long.asx: 10999 found, 1 missing, 0 addresses\n" + Total(1, 11000, 10999));
  EXPECT_EQ(outcome.err, "C:\\Music\\Long.asx: missing: C:\\Music\\Last.mp3\n");
}

TEST_F(VerifyCommandTest, TakesPathsOfTheMachineAndOfThisSystem) {
  WriteMix();
  const std::string expected =
      "C:\\Music\\Mix.m3u: 2 found, 1 missing, 0 addresses\n" + Total(1, 3, 2);
  EXPECT_EQ(Verify({Place("C/Music/Mix.m3u").string()}).out, expected);
  EXPECT_EQ(Verify({(Place("C/Music") / ".." / "Music" / "Mix.m3u").string()}).out, expected);
  EXPECT_EQ(Verify({"C:/Music/Mix.m3u"}).out,
            "C:/Music/Mix.m3u: 2 found, 1 missing, 0 addresses\n" + Total(1, 3, 2));
  EXPECT_EQ(Verify({"c:\\MUSIC\\mix.M3U"}).out,
            "c:\\MUSIC\\mix.M3U: 2 found, 1 missing, 0 addresses\n" + Total(1, 3, 2));
}

TEST_F(VerifyCommandTest, AFileOfNoDriveIsRefused) {
  WriteFile(Root() / "Mix.m3u", "");
  const std::string path = (Root() / "Mix.m3u").string();
  const Outcome outcome = Verify({path});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "norvo-playlists: " + path +
                             " is no file of the machine. Name a path of the machine, such as "
                             "C:\\Music\\Mix.m3u, or of a file in its folder.\n");
}

TEST_F(VerifyCommandTest, AFileThatIsNotThereIsCalledSo) {
  const Outcome outcome = Verify({R"(C:\Music\gone.m3u)"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "C:\\Music\\gone.m3u: there is no such file\n");
  EXPECT_EQ(outcome.out, "C:\\Music\\gone.m3u: 0 found, 0 missing, 0 addresses\n" + Total(1, 0, 0));
}

TEST_F(VerifyCommandTest, WhyAListCannotBeReadIsTold) {
  // The library's reader of settings files keeps it to itself that it could not open one.
  WriteFile(Place("C/Music/Long.pls"),
            "[playlist]\r\nNumberOfEntries=1\r\nFile1=" + std::string(4'194'305, 'x') + "\r\n");
  const Outcome outcome = Verify({R"(C:\Music\Long.pls)"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err,
            "C:\\Music\\Long.pls: cannot be read to its end: it has a line of more than 4194304 "
            "characters\n");
}

TEST_F(VerifyCommandTest, WithoutPathsAllRestoredPlaylistsAreVerified) {
  Init();
  WriteSong("One.mp3");
  WriteFile(Lists() / "WinAmp/B.m3u", "#EXTM3U\r\nC:\\Music\\One.mp3\r\n");
  WriteFile(Lists() / "WinAmp/notes.txt", "C:\\gone.mp3\r\n");
  WriteFile(Lists() / "A.pls", "[playlist]\r\nFile1=C:\\gone.mp3\r\nNumberOfEntries=1\r\n");
  WriteFile(Place("C/Music/Other.m3u"), "#EXTM3U\r\ngone.mp3\r\n");
  const Outcome outcome = Verify();
  EXPECT_EQ(outcome.code, 1);
  const std::string lists = R"(C:\My Documents\Norvo Media\PlayLists\)";
  EXPECT_EQ(outcome.out, lists + "A.pls: 0 found, 1 missing, 0 addresses\n" + lists +
                             "WinAmp\\B.m3u: 1 found, 0 missing, 0 addresses\n" + Total(2, 2, 1));
  EXPECT_EQ(outcome.err, lists + "A.pls: missing: C:\\gone.mp3\n");
}

TEST_F(VerifyCommandTest, WithoutPathsAndPlaylistsItSaysWhatToDo) {
  const std::string rest =
      ". Name the playlists to verify, or run norvo-playlists restore first.\n";
  const std::string start = "norvo-playlists: The machine has no folder of restored playlists";
  EXPECT_EQ(Verify().err, start + rest);
  Init();
  const Outcome outcome = Verify();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, start + R"(, C:\My Documents\Norvo Media\PlayLists\)" + rest);
}

TEST_F(VerifyCommandTest, NothingIsChanged) {
  WriteMix();
  Init();
  WriteFile(Lists() / "WinAmp/Mix.m3u", "#EXTM3U\r\nC:\\Music\\One.mp3\r\n");
  const auto before = Snapshot(Root());
  Verify();
  Verify({R"(C:\Music\Mix.m3u)"});
  EXPECT_EQ(Snapshot(Root()), before);
  // Reading through the library registers media; a list that is there does not grow either.
  RunProgram({"collect", "--machine", Machine()});
  const auto collected = Snapshot(Root());
  ASSERT_TRUE(fs::exists(DataArea() / "MediaList.txt"));
  WriteSong("New.mp3");
  WriteFile(Place("C/Music/New.m3u"), "#EXTM3U\r\nNew.mp3\r\n");
  EXPECT_EQ(Verify({R"(C:\Music\New.m3u)"}).code, 0);
  EXPECT_EQ(ReadFile(DataArea() / "MediaList.txt"),
            collected.at((DataArea() / "MediaList.txt").string()));
}

TEST_F(VerifyCommandTest, ReportsAsADocument) {
  WriteMix();
  const auto document = Verify({"--json", R"(C:\Music\Mix.m3u)"}).Document();
  EXPECT_EQ(document.at("command"), "verify");
  EXPECT_EQ(document.at("exitCode"), 1);
  const nlohmann::json row = {{"path", R"(C:\Music\Mix.m3u)"},
                              {"whole", true},
                              {"reason", ""},
                              {"found", 2},
                              {"addresses", 0},
                              {"missing", {"Three.mp3"}}};
  EXPECT_EQ(document.at("playlists"), nlohmann::json::array({row}));
  EXPECT_EQ(document.at("leftOut"),
            std::vector<std::string>{R"(C:\Music\Mix.m3u: missing: Three.mp3)"});
}

TEST_F(VerifyCommandTest, TheDocumentNamesTheLog) {
  WriteMix();
  Init();
  const auto document = Verify({"--log", "--json", R"(C:\Music\Mix.m3u)"}).Document();
  const nlohmann::json log = {{"machine", R"(C:\Norvo\VBLog.txt)"},
                              {"system", Place("C/Norvo/VBLog.txt").string()}};
  EXPECT_EQ(document.at("log"), log);
  EXPECT_TRUE(Holds(ReadFile(Place("C/Norvo/VBLog.txt")), "Three.mp3"));
  EXPECT_FALSE(Verify({"--json", R"(C:\Music\Mix.m3u)"}).Document().contains("log"));
}

TEST_F(VerifyCommandTest, QuietStillTellsTheTable) {
  WriteMix();
  EXPECT_EQ(Verify({"--quiet", R"(C:\Music\Mix.m3u)"}).out,
            "C:\\Music\\Mix.m3u: 2 found, 1 missing, 0 addresses\n");
}

}  // namespace
}  // namespace norvo::cli
