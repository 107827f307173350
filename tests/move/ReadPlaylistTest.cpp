#include "move/ReadPlaylist.h"

#include <gtest/gtest.h>

#include "move/WatchedWork.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Reads playlists on a machine that has none of the product's settings.
class ReadPlaylistTest : public ::testing::Test {
 protected:
  ReadPlaylistTest() {
    machines.AddSong(u"C:\\Music\\One.mp3");
    machines.from->AddFile(u"C:\\Music\\Mix.m3u",
                           "#EXTM3U\r\n#EXTINF:61,Ann - First\r\nC:\\Music\\One.mp3\r\n"
                           "C:\\Music\\Gone.mp3\r\nhttp://example.com/\r\n");
    machines.from->AddFile(u"C:\\Music\\Plain.m3u", "C:\\Music\\One.mp3\r\n");
    machines.from->AddFile(u"C:\\Music\\Torn.pls", "[playlist]\r\nVersion=9\r\n");
  }
  ReadResult Read(StringView path, std::int32_t type = 0, bool log = false) {
    return ReadPlaylist(machines.from, ToUtf8(path), type, {log}, heard);
  }

  MemoryMove machines;
  WatchedWork heard;
};

TEST_F(ReadPlaylistTest, TellsThePlaylistAndItsEntries) {
  machines.from->ConfigureProduct();
  const ReadResult result = Read(u"C:\\Music\\Mix.m3u");
  EXPECT_TEXT(result.path, u"C:\\Music\\Mix.m3u");
  EXPECT_EQ(result.type, 3);
  EXPECT_TEXT(result.name, u"Mix");
  EXPECT_TRUE(result.whole);
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].urlType, 0);
  EXPECT_TEXT(result.entries[0].artist, u"Ann");
  EXPECT_TEXT(result.entries[0].title, u"First");
  EXPECT_TEXT(result.entries[0].duration, u":61");
  EXPECT_EQ(result.entries[0].size, 25);
  EXPECT_TEXT(result.entries[0].source, u"C:\\Music\\One.mp3");
  EXPECT_EQ(result.entries[1].urlType, 9);
  EXPECT_TEXT(result.entries[1].source, u"http://example.com/");
  ASSERT_EQ(result.drops.size(), 1u);
  EXPECT_EQ(result.drops[0].outcome, ItemOutcome::Missing);
  EXPECT_TEXT(result.drops[0].reference, u"C:\\Music\\Gone.mp3");
  EXPECT_EQ(heard.events, Lines{"dropped from C:\\Music\\Mix.m3u: C:\\Music\\Gone.mp3"});
}

TEST_F(ReadPlaylistTest, NeedsNoSettingsOfTheProduct) {
  const ReadResult result = Read(u"C:\\Music\\Mix.m3u");
  EXPECT_TRUE(result.whole);
  EXPECT_EQ(result.entries.size(), 2u);
}

TEST_F(ReadPlaylistTest, AFileWhoseFirstLinesTellNoTypeIsNotRead) {
  const ReadResult result = Read(u"C:\\Music\\Torn.pls");
  EXPECT_EQ(result.type, 0);
  EXPECT_FALSE(result.whole);
  EXPECT_TRUE(result.entries.empty());
}

TEST_F(ReadPlaylistTest, ATypeCanBeChosen) {
  const ReadResult result = Read(u"C:\\Music\\Plain.m3u", 3);
  EXPECT_EQ(Read(u"C:\\Music\\Plain.m3u").type, 6);
  EXPECT_EQ(result.type, 3);
  EXPECT_EQ(result.entries.size(), 1u);
}

TEST_F(ReadPlaylistTest, AMissingFileIsNotWhole) {
  const ReadResult result = Read(u"C:\\Music\\None.m3u", 3);
  EXPECT_FALSE(result.whole);
  EXPECT_TRUE(result.entries.empty());
  EXPECT_EQ(heard.warnings, LinesOf(result.warnings));
}

TEST_F(ReadPlaylistTest, ChangesNothingOnTheMachine) {
  machines.from->ConfigureProduct();
  Read(u"C:\\Music\\Mix.m3u");
  EXPECT_EQ(WritesOf(*machines.from), Lines());
  EXPECT_TRUE(machines.from->Records().empty());
}

TEST_F(ReadPlaylistTest, ButForTheLog) {
  machines.from->ConfigureProduct();
  const ReadResult result = Read(u"C:\\Music\\Mix.m3u", 0, true);
  EXPECT_TEXT(result.log.path, u"C:\\Norvo\\VBLog.txt");
  EXPECT_NE(machines.from->Bytes(result.log.path).find("Gone.mp3"), std::string::npos);
  EXPECT_TRUE(machines.from->Messages().Shown().empty());
}

}  // namespace
}  // namespace norvo
