#include "readers/AsxParams.h"

#include <map>

#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

class AsxParamsTest : public PlaylistFixture {
 protected:
  AsxParamsTest() { platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia()); }

  /// Reads an entry with the lines in front of its reference.
  bool ReadEntry(const Lines& lines) {
    Lines all = {"<Asx Version=\"3.0\">", "<Entry>"};
    all.insert(all.end(), lines.begin(), lines.end());
    for (const char* const line : {"<Ref Href=\"C:\\Music\\a.mp3\" />", "</Entry>", "</Asx>"}) {
      all.emplace_back(line);
    }
    return ReadText(u"C:\\Lists\\Mix.asx", 1, TextOf(all));
  }

  static std::string Param(const std::string& name, const std::string& value) {
    return "<Param Name=\"" + name + "\" Value=\"" + value + "\" />";
  }

  /// All fields of the first entry that a Param can reach.
  std::map<std::string, std::string> Snapshot() {
    std::map<std::string, std::string> fields;
    for (const StringView name :
         {u"ASX_Artist",      u"Entry_ArtistName", u"ASX_Album",          u"Entry_AlbumName",
          u"ASX_SongName",    u"Entry_SongName",   u"PlaylistAttribute",  u"Entry_Genre",
          u"MediaType",       u"MediaAttribute",   u"Entry_TrackNumber",  u"BitRate",
          u"DigitallySecure", u"PlayCount",        u"Entry_CreationDate", u"Entry_SourceURL",
          u"Entry_FileName",  u"Entry_FileSize",   u"ASX_Title",          u"ASX_Author",
          u"Copyright",       u"Abstract",         u"Entry_Duration",     u"Entry_SongTitle",
          u"HasExtendedInfo"}) {
      fields[Utf8(name)] = Field(1, name);
    }
    return fields;
  }
};

struct EntryParamRow {
  const char* name;
  const char* value;
  std::map<std::string, std::string> changes;
};

TEST_F(AsxParamsTest, EachKnownNameInAnEntrySetsItsFieldsAndNothingElse) {
  const EntryParamRow rows[] = {
      {"Artist", "X", {{"ASX_Artist", "X"}, {"Entry_ArtistName", "X"}}},
      {"Album", "X", {{"ASX_Album", "X"}, {"Entry_AlbumName", "X"}}},
      {"Name", "X", {{"ASX_SongName", "X"}, {"Entry_SongName", "X"}}},
      {"WM/AlbumTitle", "X", {{"ASX_Album", "X"}, {"Entry_AlbumName", "X"}}},
      {"PlaylistAttribute", "X", {{"PlaylistAttribute", "X"}}},
      {"Genre", "X", {{"Entry_Genre", "X"}}},
      {"WM/Genre", "X", {{"Entry_Genre", "X"}}},
      {"MediaType", "X", {{"MediaType", "X"}}},
      {"MediaAttribute", "-32768", {{"MediaAttribute", "-32768"}}},
      {"OriginalIndex", "X", {{"Entry_TrackNumber", "X"}}},
      {"Bitrate", "128000", {{"BitRate", "128000"}}},
      {"DigitallySecure", "X", {{"DigitallySecure", "X"}}},
      {"PlayCount", "2147483647", {{"PlayCount", "2147483647"}}},
      {"CreationDate", "X", {{"Entry_CreationDate", "X"}}},
      // The reference is set later, so that this one does not last.
      {"SourceURL", "C:\\other.mp3", {}},
      {"Is_Protected", "1", {}},
      {"Is_Trusted", "1", {}},
      {"TOC", "1", {}},
      {"type", "1", {}},
      {"WMFSDKNeeded", "1", {}},
      {"WMFSDKVersion", "1", {}},
      {"Unheard", "1", {}},
      {"", "1", {}},
  };
  ASSERT_TRUE(ReadEntry({}));
  const std::map<std::string, std::string> untouched = Snapshot();
  for (const EntryParamRow& row : rows) {
    log.clear();
    EXPECT_TRUE(ReadEntry({Param(row.name, row.value)})) << row.name;
    std::map<std::string, std::string> expected = untouched;
    for (const auto& [field, value] : row.changes) expected[field] = value;
    // An artist and a song together make the title; none of the rows sets both.
    EXPECT_EQ(Snapshot(), expected) << "Param " << row.name;
    EXPECT_EQ(LogLines(), Lines()) << "Param " << row.name;
  }
}

TEST_F(AsxParamsTest, PatternsAndNamesIgnoreCase) {
  ASSERT_TRUE(
      ReadEntry({"<PARAM NAME=\"ARTIST\" VALUE=\"X\" />", "<param name=\"aLBUM\" value=\"Y\">"}));
  EXPECT_EQ(Field(1, u"ASX_Artist"), "X");
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "X");
  EXPECT_EQ(Field(1, u"ASX_Album"), "Y");
}

TEST_F(AsxParamsTest, TheAlbumTitleOfTheFileFillsOnlyWhatIsEmpty) {
  ASSERT_TRUE(ReadEntry({Param("Album", "Own"), Param("WM/AlbumTitle", "Longer title")}));
  EXPECT_EQ(Field(1, u"Entry_AlbumName"), "Own");
  EXPECT_EQ(Field(1, u"ASX_Album"), "Own");
  ASSERT_TRUE(ReadEntry({Param("WM/AlbumTitle", "File"), Param("WM/AlbumTitle", "Second")}));
  EXPECT_EQ(Field(1, u"Entry_AlbumName"), "File");
  ASSERT_TRUE(ReadEntry({Param("WM/AlbumTitle", "File"), Param("Album", "Own")}));
  EXPECT_EQ(Field(1, u"Entry_AlbumName"), "Own");
}

TEST_F(AsxParamsTest, TheGenreOfTheFileFillsOnlyAnEmptyGenre) {
  ASSERT_TRUE(ReadEntry({Param("Genre", "Pop"), Param("WM/Genre", "Rock")}));
  EXPECT_EQ(Field(1, u"Entry_Genre"), "Pop");
  ASSERT_TRUE(ReadEntry({Param("WM/Genre", "Rock"), Param("Genre", "Pop")}));
  EXPECT_EQ(Field(1, u"Entry_Genre"), "Pop");
}

TEST_F(AsxParamsTest, ANumberThatDoesNotConvertEndsTheRead) {
  const std::pair<const char*, const char*> rows[] = {
      {"Bitrate", "fast"},         {"Bitrate", ""},         {"Bitrate", "2147483648"},
      {"PlayCount", "many"},       {"PlayCount", ""},       {"PlayCount", "2147483648"},
      {"MediaAttribute", "32768"}, {"MediaAttribute", "x"}, {"MediaAttribute", ""},
  };
  for (const auto& [name, value] : rows) {
    log.clear();
    EXPECT_FALSE(ReadEntry({Param(name, value)})) << name << "=" << value;
    EXPECT_EQ(Kept(), 0) << name << "=" << value;
    EXPECT_EQ(LogLines(), Lines({"NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX "
                                 "returned False"}))
        << name << "=" << value;
  }
}

TEST_F(AsxParamsTest, EntriesBeforeANumberThatDoesNotConvertStay) {
  EXPECT_FALSE(ReadText(u"C:\\Music\\Mix.asx", 1,
                        TextOf({"<Entry>", "<Ref Href=\"C:\\Music\\a.mp3\"/>", "</Entry>",
                                "<Entry>", Param("Bitrate", "fast"), "</Entry>"})));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(Registered().size(), 1u);
}

TEST_F(AsxParamsTest, ASourceAddressParamLeavesItsFileFactsBehindWhenTheReferenceIsRelative) {
  platform->AddFile(u"C:\\Other\\param.mp3", std::string(77, 'y'));
  platform->AddFile(u"C:\\Lists\\b.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.asx", 1,
                       TextOf({"<Entry>", Param("SourceURL", "C:\\Other\\param.mp3"),
                               "<Ref Href=\"b.mp3\"/>", "</Entry>"})));
  EXPECT_EQ(Field(1, u"Entry_SourceURL"), "C:\\Lists\\b.mp3");
  EXPECT_EQ(Field(1, u"Entry_URLType"), "4");
  EXPECT_EQ(Field(1, u"Entry_FileName"), "param.mp3");
  EXPECT_EQ(Field(1, u"Entry_FileSize"), "77");
}

TEST_F(AsxParamsTest, ASourceAddressParamIsReplacedWholeByAFullReference) {
  platform->AddFile(u"C:\\Other\\param.mp3", std::string(77, 'y'));
  ASSERT_TRUE(ReadEntry({Param("SourceURL", "C:\\Other\\param.mp3")}));
  EXPECT_EQ(Field(1, u"Entry_FileName"), "a.mp3");
  EXPECT_EQ(Field(1, u"Entry_FileSize"), "200");
}

struct PlaylistParamRow {
  const char* name;
  const char16_t* property;
};

TEST_F(AsxParamsTest, EachKnownNameOutsideEntriesSetsItsProperty) {
  constexpr PlaylistParamRow kRows[] = {
      {"Author", u"ASX_Author"},
      {"Title", u"ASX_Title"},
      {"PlaylistAttribute", u"ASX_PlayListAttribute"},
      {"CreationTime", u"CreationTime"},
      {"AllowShuffle", u"ASX_AllowShuffle"},
      {"Name", u"PlayListName"},
      {"Artist", u"ASX_Artist"},
      {"Album", u"ASX_Album"},
      {"aRTIST", u"ASX_Artist"},
  };
  for (const PlaylistParamRow& row : kRows) {
    EXPECT_TRUE(ReadText(u"C:\\Lists\\Mix.asx", 1, TextOf({Param(row.name, "Value of it")})));
    for (const PlaylistParamRow& other : kRows) {
      const bool set = StringView(other.property) == row.property;
      EXPECT_EQ(Property(other.property) == "Value of it", set)
          << "Param " << row.name << ", property " << Utf8(other.property);
    }
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(AsxParamsTest, OtherNamesOutsideEntriesChangeAndLogNothing) {
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.asx", 1,
                       TextOf({Param("Genre", "X"), Param("Bitrate", "fast"), Param("", "X")})));
  EXPECT_EQ(Property(u"PlayListName"), "Mix.asx");
  EXPECT_EQ(Property(u"ASX_Artist"), "");
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(AsxParamsTest, APlaylistNameGoesThroughTheExtensionRule) {
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.asx", 1, TextOf({Param("Name", "Party.asx")})));
  EXPECT_EQ(Property(u"PlayListName"), "Party.asx");
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 2, TextOf({Param("Name", "Party.m3u")})));
  EXPECT_EQ(Property(u"PlayListName"), "Party");
  ASSERT_TRUE(ReadText(u"C:\\Lists\\Mix.m3u", 2, TextOf({Param("Name", "Party.asx")})));
  EXPECT_EQ(Property(u"PlayListName"), "Mix");
}

}  // namespace
}  // namespace norvo
