#include "readers/PlaylistFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

std::string Utf16(StringView text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

struct EncodedPlaylist {
  std::int32_t type;
  const char16_t* path;
  StringView text;
};

constexpr EncodedPlaylist kEncodedPlaylists[] = {
    {1, u"C:\\Lists\\Mix.asx",
     u"<Entry>\r\n<Ref Href=\"C:\\Музыка\\Ärger – 音.mp3\"/>\r\n</Entry>\r\n"},
    {2, u"C:\\Lists\\Mix.m3u",
     u"<Entry>\r\n<Ref Href=\"C:\\Музыка\\Ärger – 音.mp3\"/>\r\n</Entry>\r\n"},
    {3, u"C:\\Lists\\Mix.m3u",
     u"#EXTM3U\r\n#EXTINF:100,Певец - Ärger\r\nC:\\Музыка\\Ärger – 音.mp3\r\n"},
    {4, u"C:\\Lists\\Mix.pls",
     u"[playlist]\r\nNumberOfEntries=1\r\nFile1=C:\\Музыка\\Ärger – 音.mp3\r\n"},
    {5, u"C:\\Lists\\Mix.pls",
     u"[playlist]\r\nNumberOfEntries=1\r\nFile1=C:\\Музыка\\Ärger – 音.mp3\r\n"},
    {6, u"C:\\Lists\\Mix.m3u", u"C:\\Музыка\\Ärger – 音.mp3\r\n"},
};

class PlaylistEncodingTest : public PlaylistFixture {
 protected:
  PlaylistEncodingTest() {
    platform->AddFile(u"C:\\Музыка\\Ärger – 音.mp3", UntaggedMedia());
    platform->AddFile(u"C:\\Musik\\Ärger.mp3", UntaggedMedia());
  }
};

TEST_F(PlaylistEncodingTest, NamesOfAnyScriptAreReadBehindAByteOrderMark) {
  for (const EncodedPlaylist& kind : kEncodedPlaylists) {
    for (const std::string& bytes :
         {"\xEF\xBB\xBF" + ToUtf8(kind.text), Utf16(kind.text, false), Utf16(kind.text, true)}) {
      ASSERT_TRUE(ReadText(kind.path, kind.type, bytes));
      EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Музыка\\Ärger – 音.mp3"}))
          << "type " << kind.type << ", mark " << static_cast<int>(bytes[0]);
      EXPECT_EQ(Fields(u"Entry_FileName"), Lines({"Ärger – 音.mp3"})) << "type " << kind.type;
    }
  }
}

TEST_F(PlaylistEncodingTest, ATitleOfAnyScriptIsSplitLikeOthers) {
  ASSERT_TRUE(
      ReadText(kEncodedPlaylists[2].path, 3, "\xEF\xBB\xBF" + ToUtf8(kEncodedPlaylists[2].text)));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "Певец");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "Ärger");
}

TEST_F(PlaylistEncodingTest, WithoutAMarkAFileIsInTheCodePage) {
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 3, "C:\\Musik\\\xC4rger.mp3\r\n"));
  EXPECT_EQ(Fields(u"Entry_FileName"), Lines({"Ärger.mp3"}));
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 3, "C:\\Musik\\\xC3\x84rger.mp3\r\n"));
  EXPECT_EQ(Kept(), 0);
}

TEST_F(PlaylistEncodingTest, AFileThatEndsAmidACharacterIsReadUpToThere) {
  std::string odd = Utf16(u"C:\\Musik\\Ärger.mp3", false) + "x";
  for (const std::int32_t type : {3, 6}) {
    ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", type, odd));
    EXPECT_EQ(Fields(u"Entry_FileName"), Lines({"Ärger.mp3"})) << type;
  }
  for (const std::int32_t type : {1, 2, 3, 4, 5, 6}) {
    playlist = NewPlayList(type);
    platform->AddFile(u"C:\\Lists\\Mix.m3u", "\xEF\xBB\xBF\xE9\x9F");
    Read(u"C:\\Lists\\Mix.m3u");
    EXPECT_EQ(Kept(), 0) << type;
  }
}

TEST_F(PlaylistEncodingTest, NoBytesWhateverKeepAReadFromEnding) {
  std::string all;
  for (std::uint32_t i = 0; i < 65536; ++i) all += static_cast<char>(i * 2654435761u >> 13);
  for (const char* const start : {"", "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", "[playlist]\r\n",
                                  "<Entry>\r\n<Ref Href=\"", "#EXTINF:"}) {
    for (const std::int32_t type : {1, 2, 3, 4, 5, 6}) {
      EXPECT_NO_THROW(ReadText(u"C:\\Lists\\Mix.m3u", type, start + all)) << type;
      EXPECT_EQ(Kept(), 0) << type;
    }
  }
}

TEST_F(PlaylistEncodingTest, AFileOfNulsHoldsNothing) {
  for (const std::int32_t type : {1, 2, 3, 4, 5, 6}) {
    EXPECT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", type, std::string(10000, '\0'))) << type;
    EXPECT_EQ(Kept(), 0) << type;
  }
}

}  // namespace
}  // namespace norvo
