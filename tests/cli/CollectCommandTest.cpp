#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

class CollectCommandTest : public ProgramTest {
 protected:
  Outcome Collect(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {"collect", "--machine", Machine()});
    return RunProgram(more);
  }
};

TEST_F(CollectCommandTest, WritesNeutralFilesAndNamesWhatIsLeftOut) {
  WriteMix();
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(
      Holds(outcome.err, "C:\\Music\\Mix.m3u: left out \"C:\\Music\\Three.mp3\": no such file"))
      << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "Playlists found:     1\n")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "written:           1\n"));
  EXPECT_TRUE(Holds(outcome.out, "Entries kept:        2\n"));
  EXPECT_TRUE(Holds(outcome.out, "Entries dropped:     1 (1 no such file)\n"));
  EXPECT_TRUE(Holds(outcome.out, "Media:               2000 bytes"));
  EXPECT_TRUE(Holds(outcome.out, DataArea().string()));
  EXPECT_TRUE(Holds(ReadFile(DataArea() / "Mix.ini"), "TotalSongs=2\r\n"));
  EXPECT_FALSE(fs::exists(DataArea() / "PlayLists.txt"));
}

TEST_F(CollectCommandTest, ListsOfNoKnownTypeAreToldAndCounted) {
  WriteMix();
  WriteFile(Place("C/Music/Odd.m3u"), "only a name\r\n");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(
      Holds(outcome.err, "C:\\Music\\Odd.m3u: skipped: its first lines tell no playlist type"))
      << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "Playlists found:     2\n")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "  of no known type:  1\n    C:\\Music\\Odd.m3u\n"));
  const auto document = Collect({"--json"}).Document();
  EXPECT_EQ(document.at("summary").at("found"), 2);
  EXPECT_EQ(document.at("summary").at("unknownType"), 1);
  EXPECT_EQ(document.at("playlists")[1].at("outcome"), "unknownType");
  EXPECT_EQ(document.at("playlists")[1].at("typeName"), "unknown");
}

TEST_F(CollectCommandTest, WhatRestoreHasMadeIsSkippedUntilItIsChanged) {
  WriteMix();
  Collect({"--init"});
  RunProgram({"restore", "--machine", Machine()});
  const Outcome outcome = Collect();
  EXPECT_TRUE(Holds(outcome.out,
                    "Playlists found:     5\n  written:           1\n"
                    "  restored copies:   4\n"))
      << outcome.out;
  EXPECT_TRUE(Holds(outcome.err, "restore or migrate has made them and nobody has changed them: 4"))
      << outcome.err;
  const fs::path list = Place("C/My Documents/Norvo Media/PlayLists/WinAmp/Mix.m3u");
  WriteFile(list, ReadFile(list) + "C:\\Music\\Two.mp3\r\n");
  const auto summary = Collect({"--json"}).Document().at("summary");
  EXPECT_EQ(summary.at("restoredCopy"), 3);
  EXPECT_EQ(summary.at("found"), 5);
  const auto scanned = RunProgram({"scan", "--machine", Machine(), "--json"}).Document();
  EXPECT_EQ(scanned.at("playlists").size(), 2u);
  EXPECT_EQ(scanned.at("skipped").size(), 3u);
  EXPECT_EQ(scanned.at("skipped")[0].at("reasonCode"), "restoredCopy");
}

TEST_F(CollectCommandTest, TwoRunsGiveTheSameBytes) {
  WriteMix();
  Collect({"--init"});
  const auto before = Snapshot(Machine());
  Collect({"--init"});
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(CollectCommandTest, ReadingAheadChangesNothing) {
  WriteMix();
  const Outcome with = Collect({"--init", "--log"});
  const auto files = Snapshot(Machine());
  for (const char* const made : {"C/My Documents", "C/Norvo", "registry.reg"}) {
    fs::remove_all(Place(made));
  }
  const Outcome without = Collect({"--init", "--log", "--no-read-ahead"});
  EXPECT_EQ(without.out, with.out);
  EXPECT_EQ(without.err, with.err);
  EXPECT_TRUE(Snapshot(Machine()) == files);
}

TEST_F(CollectCommandTest, NothingLeftOutEndsWithZero) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/Mix.m3u"), "#EXTM3U\r\nOne.mp3\r\n");
  WriteFile(Place("C/Music/Nothing in it.m3u"), "#EXTM3U\r\n");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(Holds(outcome.out, "without entries:   1\n    C:\\Music\\Nothing in it.m3u\n"))
      << outcome.out;
}

TEST_F(CollectCommandTest, ReportsAsADocument) {
  WriteMix();
  WriteFile(Place("C/Music/notes.txt"), "text");
  WriteFile(Place("C/Music/Bare.m3u"), "C:\\Music\\One.mp3\r\nC:\\Music\\notes.txt\r\n\r\n");
  const Outcome outcome = Collect({"--init", "--json"});
  const auto document = outcome.Document();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(document.at("exitCode"), 1);
  EXPECT_EQ(document.at("init").at("written").size(), 6u);
  const auto& summary = document.at("summary");
  EXPECT_EQ(summary.at("found"), 2);
  EXPECT_EQ(summary.at("written"), 2);
  EXPECT_EQ(summary.at("entriesKept"), 3);
  EXPECT_EQ(summary.at("entriesDropped").at("missing"), 1);
  EXPECT_EQ(summary.at("entriesDropped").at("notMedia"), 1);
  EXPECT_EQ(summary.at("entriesDropped").at("emptyReference"), 1);
  EXPECT_EQ(summary.at("mediaBytes"), 3004);
  EXPECT_EQ(document.at("neutralFiles").at("system"), DataArea().string());
  const auto& mix = document.at("playlists")[0];
  EXPECT_EQ(mix.at("path"), "C:\\Music\\Mix.m3u");
  EXPECT_EQ(mix.at("outcome"), "written");
  EXPECT_EQ(mix.at("neutralFile"), "C:\\My Documents\\Norvo Media\\KVs\\Mix.ini");
  EXPECT_EQ(mix.at("dropped")[0].at("reference"), "C:\\Music\\Three.mp3");
  EXPECT_EQ(mix.at("dropped")[0].at("reasonCode"), "missing");
  EXPECT_EQ(document.at("leftOut").size(), 3u);
}

TEST_F(CollectCommandTest, AnAsxWithoutANameIsToldWithItsEntries) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/Plain.asx"),
            "<Asx Version = \"3.0\" >\r\n<Entry>\r\n<Ref href = \"C:\\Music\\One.mp3\" />\r\n"
            "</Entry>\r\n</Asx>\r\n");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(
      Holds(outcome.err, "C:\\Music\\Plain.asx: has 1 entry but no name for its neutral file"))
      << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "not written:       1\n"));
}

TEST_F(CollectCommandTest, APlaylistOfNoKnownTypeIsTold) {
  WriteFile(Place("C/Music/Odd.asx"), "nothing\r\nof\r\nthe\r\nkind\r\n");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "C:\\Music\\Odd.asx: its first lines tell no playlist type"));
  EXPECT_TRUE(Holds(outcome.out, "of no known type:  1\n"));
}

TEST_F(CollectCommandTest, APlaylistThatEndsInAnInfoLineCannotBeReadToItsEnd) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/Torn.m3u"), "#EXTM3U\r\nOne.mp3\r\n#EXTINF:1,A - B");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "C:\\Music\\Torn.m3u: cannot be read to its end"));
  EXPECT_TRUE(Holds(outcome.out, "not readable:      1\n"));
}

TEST_F(CollectCommandTest, TheEarlierOfTwoWithOneNameIsReplaced) {
  WriteSong("One.mp3");
  WriteFile(Place("C/Music/A/Mix.m3u"), "#EXTM3U\r\nC:\\Music\\One.mp3\r\n");
  WriteFile(Place("C/Music/B/MIX.m3u"), "#EXTM3U\r\nC:\\Music\\One.mp3\r\n");
  const Outcome outcome = Collect({"--init", "--json"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err,
                    "C:\\Music\\A\\Mix.m3u: its neutral file is replaced by that of "
                    "C:\\Music\\B\\MIX.m3u"))
      << outcome.err;
  const auto document = outcome.Document();
  EXPECT_EQ(document.at("summary").at("written"), 1);
  EXPECT_EQ(document.at("summary").at("replaced"), 1);
  EXPECT_EQ(document.at("playlists")[0].at("outcome"), "replaced");
  EXPECT_EQ(document.at("playlists")[0].at("replacedBy"), "C:\\Music\\B\\MIX.m3u");
}

TEST_F(CollectCommandTest, PlaylistsBehindOneThatStopsTheQueueAreTold) {
  WriteSong("One.mp3");
  // Lists of bare paths have no limit of lines; the count of entries has one.
  std::string bare;
  for (int i = 0; i < 32768; ++i) bare += "C:\\Music\\One.mp3\r\n";
  WriteFile(Place("C/Music/A.m3u"), bare);
  WriteFile(Place("C/Music/B.m3u"), "C:\\Music\\One.mp3\r\n");
  const Outcome outcome = Collect({"--init", "--json"});
  EXPECT_EQ(outcome.code, 1);
  const auto summary = outcome.Document().at("summary");
  EXPECT_EQ(summary.at("found"), 2);
  EXPECT_EQ(summary.at("notProcessed"), 2);
  EXPECT_TRUE(Holds(outcome.err, "C:\\Music\\A.m3u: not processed"));
  EXPECT_TRUE(Holds(outcome.err, "C:\\Music\\B.m3u: not processed"));
}

TEST_F(CollectCommandTest, ReferencesCannotSteerTheTerminal) {
  WriteFile(Place("C/Music/Mix.m3u"), "#EXTM3U\r\ngo\x1B[2Jne.mp3\r\n");
  const Outcome outcome = Collect({"--init"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_FALSE(Holds(outcome.err, "\x1B"));
  EXPECT_TRUE(Holds(outcome.err, "go\\x1B[2Jne.mp3")) << outcome.err;
  EXPECT_FALSE(Holds(Collect({"--json"}).out, "\x1B"));
}

}  // namespace
}  // namespace norvo::cli
