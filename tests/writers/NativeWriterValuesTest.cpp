#include <algorithm>

#include "writers/NativeWriterFixture.h"

namespace norvo {
namespace {

/// Each value of a playlist and of its entries, in each syntax.
class NativeWriterValuesTest : public NativeWriterFixture {
 protected:
  /// A name that no playlist has had before.
  std::string NextName() { return "n" + std::to_string(++names_) + "n"; }
  /// The ASX file of a new playlist of one stream with these further values.
  std::string AsxOf(std::int32_t type, Values entry, Values globals = {}) {
    const std::string name = NextName();
    NewPlayList(type, String(name.begin(), name.end()) + u".x");
    SetAll(*playlist, globals);
    const ObjectRef added =
        Add({{u"Entry_URLType", std::int32_t{9}}, {u"Entry_SourceURL", String(u"http://host/a")}});
    SetAll(*added, entry);
    Write();
    return Text(u"Windows Media Player\\" + String(name.begin(), name.end()) + u".asx");
  }

 private:
  int names_ = 0;
};

/// Lines of a text that another one lacks.
Lines Added(const std::string& longer, const std::string& shorter) {
  const auto split = [](const std::string& text) {
    Lines lines;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find("\r\n", at), text.size());
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  };
  Lines added;
  const Lines old = split(shorter);
  std::size_t next = 0;
  for (const std::string& line : split(longer)) {
    if (next < old.size() && line == old[next]) {
      ++next;
    } else {
      added.push_back(line);
    }
  }
  EXPECT_EQ(next, old.size());
  return added;
}

struct LineRow {
  const char16_t* property;
  const char* line;  // null: the property gives no line
};

constexpr LineRow kAsxLines[] = {
    {u"Entry_Duration", "<Duration Value = \"1\" />"},
    {u"ASX_Author", "<Author > 1</Author>"},
    {u"Abstract", "<Abstract > 1</Abstract>"},
    {u"Copyright", "<CopyRight > 1</CopyRight>"},
    {u"ASX_Title", "<Title> 1</Title>"},
    {u"ASX_SongName", "<Param Name = \"Name\" Value = \"1\" />"},
    {u"Entry_ArtistName", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"Entry_AlbumName", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"Entry_Genre", "<Param Name = \"Genre\" Value = \"1\" />"},
    {u"MediaType", "<Param Name = \"MediaType\" Value = \"1\" />"},
    {u"Entry_TrackNumber", "<Param Name = \"OriginalIndex\" Value = \"1\" />"},
    {u"DigitallySecure", "<Param Name = \"DigitallySecure\" Value = \"1\" />"},
    {u"Entry_CreationDate", "<Param Name = \"CreationDate\" Value = \"1\" />"},
    {u"Entry_SongName", nullptr},
    {u"Entry_SongTitle", nullptr},
    {u"PlaylistAttribute", nullptr},
    {u"HREF", nullptr},
    {u"Entry_PlayListName", nullptr},
    {u"HasExtendedInfo", nullptr},
};

constexpr LineRow kPlainLines[] = {
    {u"Entry_Duration", "<Duration Value = \"00:00:01.000\" />"},
    {u"Entry_SongTitle", "<Title> 1</Title>"},
    {u"Entry_SongName", "<Param Name = \"Name\" Value = \"1\" />"},
    {u"Entry_ArtistName", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"Entry_AlbumName", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"Entry_Genre", "<Param Name = \"Genre\" Value = \"1\" />"},
    {u"Entry_TrackNumber", "<Param Name = \"OriginalIndex\" Value = \"1\" />"},
    {u"Entry_CreationDate", "<Param Name = \"CreationDate\" Value = \"1\" />"},
    {u"Entry_PlayListName", nullptr},
    {u"HasExtendedInfo", nullptr},
};

TEST_F(NativeWriterValuesTest, EachValueOfAnEntryGivesItsOwnLineAndNothingWhenItIsEmpty) {
  const auto check = [this](std::int32_t type, const LineRow& row) {
    const std::string bare = AsxOf(type, {});
    const Lines expected = row.line == nullptr ? Lines() : Lines({row.line, ""});
    EXPECT_EQ(Added(AsxOf(type, {{row.property, String(u"1")}}), bare), expected)
        << type << " " << Utf8(row.property);
  };
  for (const LineRow& row : kAsxLines) {
    check(1, row);
    check(2, row);
  }
  for (std::int32_t type = 3; type <= 6; ++type) {
    for (const LineRow& row : kPlainLines) check(type, row);
  }
}

constexpr LineRow kPlaylistLines[] = {
    {u"ASX_Author", "<Author > 1</Author>"},
    {u"ASX_Title", "<Title> 1</Title>"},
    {u"ASX_Artist", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"ASX_Album", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"CreationTime", "<Param Name = \"CreationTime\" Value = \"1\" />"},
    {u"ASX_PlayListAttribute", "<Param Name = \"PlayListAttribute\" Value = \"1\" />"},
    {u"TotalSongs", nullptr},
};

TEST_F(NativeWriterValuesTest, EachValueOfThePlaylistGivesItsOwnLineAndNothingWhenItIsEmpty) {
  for (std::int32_t type = 1; type <= 6; ++type) {
    const std::string bare = AsxOf(type, {});
    for (const LineRow& row : kPlaylistLines) {
      const Lines expected = row.line == nullptr ? Lines() : Lines({row.line, ""});
      EXPECT_EQ(Added(AsxOf(type, {}, {{row.property, String(u"1")}}), bare), expected)
          << type << " " << Utf8(row.property);
    }
    const bool fromAsx = type <= 2;
    EXPECT_EQ(bare.find("\"AllowShuffle\" Value = \"yes\"") == std::string::npos, fromAsx) << type;
    EXPECT_TRUE(
        bare.starts_with(fromAsx ? "<ASX Version = \"\" >\r\n" : "<ASX Version = \"3.0\" >\r\n"))
        << type;
    // What an ASX playlist tells of itself is fixed for the others.
    const std::string given =
        AsxOf(type, {}, {{u"ASX_Version", String(u"1")}, {u"ASX_AllowShuffle", String(u"no")}});
    EXPECT_EQ(given.starts_with("<ASX Version = \"1\" >\r\n"), fromAsx) << type;
    EXPECT_EQ(given == bare, !fromAsx) << type;
    EXPECT_EQ(given.find("\"AllowShuffle\" Value = \"no\"") != std::string::npos, fromAsx) << type;
  }
}

struct DurationRow {
  const char* stored;
  const char* asPlain;    // duration in an ASX file from an M3U or PLS source; null for no line
  const char* asSeconds;  // in the M3U and the PLS file
};

constexpr DurationRow kDurations[] = {
    {"", nullptr, "0"},
    {"0", "00:00:00.000", "0"},
    {"-1", "00:00:00.000", "0"},
    {"59", "00:00:59.000", "0"},
    {"90", "00:02:30.000", "0"},
    {"3600", "01:00:00.000", "0"},
    {"32767", "09:06:07.000", "0"},
    {"32768", nullptr, "0"},
    {"abc", nullptr, "0"},
    {"00:03:35.000", "00:00:00.000", "215"},
    {"09:59:59.999", "00:00:00.000", "35999"},
    {"10:00:00.000", "00:00:00.000", "0"},
    {"00:03:35", "00:00:00.000", "0"},
    {"x:y:z.0", "00:00:00.000", "0"},
};

TEST_F(NativeWriterValuesTest, DurationsAreConvertedToEachSyntax) {
  for (const DurationRow& row : kDurations) {
    for (const std::int32_t type : {1, 2, 3, 4, 5, 6}) {
      const std::string stored = row.stored;
      const std::string name = NextName();
      const String duration(stored.begin(), stored.end());
      NewPlayList(type, String(name.begin(), name.end()) + u".x");
      Add({kStreamType, kStream, {u"HasExtendedInfo", true}, {u"Entry_Duration", duration}});
      Write();
      const char* const shown = type > 2 ? row.asPlain : stored.empty() ? nullptr : stored.c_str();
      const std::string asx =
          Text(u"Windows Media Player\\" + String(name.begin(), name.end()) + u".asx");
      const std::string line =
          shown == nullptr ? "" : "<Duration Value = \"" + std::string(shown) + "\" />\r\n\r\n";
      EXPECT_NE(asx.find("<Ref href = \"http://host/a\"/>\r\n\r\n" + line + "<Param"),
                std::string::npos)
          << type << " " << stored << "\n"
          << asx;
      const std::string seconds = row.asSeconds;
      EXPECT_EQ(Text(u"WinAmp\\" + String(name.begin(), name.end()) + u".m3u"),
                "#EXTM3U\r\n#EXTINF:" + seconds + ", - \r\nhttp://host/a\r\n")
          << type << " " << stored;
      EXPECT_EQ(Text(u"Sonique\\" + String(name.begin(), name.end()) + u".pls"),
                "[playlist]\r\nLength1=" + seconds +
                    "\r\nTitle1= - \r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n")
          << type << " " << stored;
    }
  }
}

TEST_F(NativeWriterValuesTest, WithoutExtendedInformationThereIsOnlyThePath) {
  NewPlayList(4);
  Add({kStreamType,
       kStream,
       {u"Entry_ArtistName", String(u"a")},
       {u"Entry_SongName", String(u"s")},
       {u"Entry_Duration", String(u"00:00:05.0")}});
  Write();
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kPlsFile),
            "[playlist]\r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n");
}

TEST_F(NativeWriterValuesTest, EntriesOfAPlsFileAreNumberedFromOne) {
  NewPlayList(5);
  for (int i = 1; i <= 11; ++i) {
    Add({kStreamType, kStream, {u"HasExtendedInfo", i == 10}});
  }
  Write();
  std::string expected = "[playlist]\r\n";
  for (int i = 1; i <= 11; ++i) {
    const std::string n = std::to_string(i);
    if (i == 10) expected += "Length10=0\r\nTitle10= - \r\n";
    expected += "File" + n + "=http://host/a\r\n";
  }
  EXPECT_EQ(Text(kPlsFile), expected + "NumberOfEntries=11\r\nVersion=2\r\n");
}

}  // namespace
}  // namespace norvo
