#include <algorithm>

#include "readers/GenericReaderFixture.h"

namespace norvo {
namespace {

using namespace std::string_literals;

/// Which key fills which property of the playlist and of its entries.
class GenericReaderPropertiesTest : public GenericReaderFixture {};

TEST_F(GenericReaderPropertiesTest, AnAsxPlaylistComesBackWithItsOwnProperties) {
  EXPECT_FALSE(ReadBytes(Generic(kAsxGlobals)));
  const std::pair<StringView, const char*> rows[] = {
      {u"PlayListName", "Mix.asx"},   {u"PlayListType", "1"},
      {u"OriginalFileName", "M.asx"}, {u"CreationTime", "5/14/2003 10:12:00 AM"},
      {u"ASX_Author", "the author"},  {u"ASX_Artist", "the artist"},
      {u"ASX_Album", "the album"},    {u"ASX_AllowShuffle", "yes"},
      {u"ASX_Title", "the title"},    {u"ASX_PlayListAttribute", "the attribute"},
      {u"ASX_Version", "2.5"},
  };
  for (const auto& [name, value] : rows) EXPECT_EQ(Property(name), value) << Utf8(name);
  EXPECT_EQ(CollectionType(), 1);
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderPropertiesTest, AnyOtherTypeGetsNeitherTheAsxPropertiesNorTheCreationTime) {
  for (const int type : {0, 2, 3, 4, 5, 6, 7, -1}) {
    Lines globals = kAsxGlobals;
    globals[1] = "PlaylistType=" + std::to_string(type);
    EXPECT_FALSE(ReadNew(Generic(globals))) << type;
    EXPECT_EQ(Property(u"PlayListName"), "Mix.asx") << type;
    EXPECT_EQ(Property(u"OriginalFileName"), "M.asx") << type;
    EXPECT_EQ(Property(u"PlayListType"), std::to_string(type));
    EXPECT_EQ(CollectionType(), type);
    for (const StringView name :
         {u"CreationTime", u"ASX_Author", u"ASX_Artist", u"ASX_Album", u"ASX_AllowShuffle",
          u"ASX_Title", u"ASX_PlayListAttribute", u"ASX_Version"}) {
      EXPECT_EQ(Property(name), "") << type << " " << Utf8(name);
    }
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderPropertiesTest, AnAsxPlaylistWithoutAVersionIsOfVersionThree) {
  ReadBytes(Generic({"PlaylistType=1"}));
  EXPECT_EQ(Property(u"ASX_Version"), "3.0");
  playlist = component.Create(u"PlayList");
  playlist->Let(u"ASX_Version", String(u"2.0"));
  ReadBytes(Generic({"PlaylistType=1"}));
  EXPECT_EQ(Property(u"ASX_Version"), "3.0");
  ReadNew(Generic({"PlaylistType=1", "ASX Version="}));
  EXPECT_EQ(Property(u"ASX_Version"), "");
}

TEST_F(GenericReaderPropertiesTest, WhatTheFileLacksKeepsItsValueAndAnEmptyValueIsTaken) {
  SetAll(*playlist, {{u"PlayListType", std::int32_t{1}},
                     {u"PlayListName", String(u"old name")},
                     {u"CreationTime", String(u"old time")},
                     {u"ASX_Author", String(u"old author")},
                     {u"ASX_Title", String(u"old title")}});
  ReadBytes(Generic({"ASX Version=2.0", "Title="}));
  EXPECT_EQ(Property(u"PlayListType"), "1");
  EXPECT_EQ(Property(u"PlayListName"), "old name");
  EXPECT_EQ(Property(u"CreationTime"), "old time");
  EXPECT_EQ(Property(u"ASX_Author"), "old author");
  EXPECT_EQ(Property(u"ASX_Title"), "");
  EXPECT_EQ(Property(u"ASX_Version"), "2.0");
  EXPECT_EQ(CollectionType(), 1);
}

TEST_F(GenericReaderPropertiesTest, TheTypeThatAHostHasSetServesWhenTheFileTellsNone) {
  playlist->Let(u"PlayListType", std::int32_t{4});
  ReadBytes(Generic({"TotalSongs=1"}));
  EXPECT_EQ(CollectionType(), 4);
  ASSERT_EQ(Kept(), 1);
  EXPECT_TEXT(EntryAt(1)->ClassName(), u"PlsEntry");
}

TEST_F(GenericReaderPropertiesTest, TheNameIsTakenAsItStandsWhateverTheType) {
  for (const char* const name : {"Road Trip", "Mix.m3u", "a.pls", ".", "x.m3u.bak"}) {
    for (const char* const type : {"3", "4", "0"}) {
      ReadNew(Generic({"PlaylistName=" + std::string(name), "PlaylistType=" + std::string(type)}));
      EXPECT_EQ(Property(u"PlayListName"), name) << type;
    }
  }
}

TEST_F(GenericReaderPropertiesTest, AnOriginalFileNameThatIsThereStays) {
  playlist->Let(u"OriginalFileName", String(u"first.m3u"));
  ReadBytes(Generic({"OriginalFileName=second.m3u"}));
  EXPECT_EQ(Property(u"OriginalFileName"), "first.m3u");
}

struct KeyRow {
  const char* key;
  const char16_t* property;
  const char* value;
};

constexpr KeyRow kSharedRows[] = {
    {"Artist", u"Entry_ArtistName", "some artist"},
    {"Album", u"Entry_AlbumName", "some album"},
    {"CreationDate", u"Entry_CreationDate", "1999"},
    {"Duration", u"Entry_Duration", "215"},
    {"Genre", u"Entry_Genre", "Rock"},
    {"HasExtendedInfo", u"HasExtendedInfo", "True"},
    {"SongName", u"Entry_SongName", "some song"},
    {"SongTitle", u"Entry_SongTitle", "some title"},
    {"SourceURL", u"Entry_SourceURL", "http://host/a"},
    {"TrackNumber", u"Entry_TrackNumber", "7"},
    {"URLType", u"Entry_URLType", "9"},
};

constexpr KeyRow kAsxRows[] = {
    {"Abstract", u"Abstract", "an abstract"},
    {"ASX_Album", u"ASX_Album", "asx album"},
    {"ASX_Artist", u"ASX_Artist", "asx artist"},
    {"ASX_Author", u"ASX_Author", "asx author"},
    {"ASX_SongName", u"ASX_SongName", "asx song"},
    {"ASX_Title", u"ASX_Title", "asx title"},
    {"ASX_BitRate", u"BitRate", "128000"},
    {"ASX_Copyright", u"Copyright", "copyright"},
    {"ASX_DigitallySecure", u"DigitallySecure", "secure"},
    {"ASX_HREF", u"HREF", "href"},
    {"ASX_MediaAttribute", u"MediaAttribute", "12"},
    {"ASX_MediaType", u"MediaType", "audio"},
    {"ASX_PlayCount", u"PlayCount", "42"},
    {"ASX_PlaylistAttribute", u"PlaylistAttribute", "attribute"},
};

/// Every property that an entry of the class has and that a reading may fill.
Lines PropertiesOf(AutomationObject& entry) {
  Lines values;
  for (const Member& member : entry.Members()->All()) {
    if (member.isMethod || member.call == nullptr) continue;
    values.push_back(Utf8(member.name) + "=" + Utf8(TextOf(entry, member.name)));
  }
  return values;
}

TEST_F(GenericReaderPropertiesTest, EachKeyOfAnEntryFillsItsPropertyAndNoOther) {
  for (int type = 1; type <= 6; ++type) {
    ReadNew(OneEntry(type, {}));
    ASSERT_EQ(Kept(), 1) << type;
    const Lines bare = PropertiesOf(*EntryAt(1));
    const auto check = [&](const KeyRow& row, const Lines& also) {
      ReadNew(OneEntry(type, {std::string(row.key) + "=" + row.value}));
      ASSERT_EQ(Kept(), 1) << type << " " << row.key;
      EXPECT_EQ(Field(1, row.property), row.value) << type << " " << row.key;
      Lines changed;
      const Lines now = PropertiesOf(*EntryAt(1));
      for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] != bare.at(i)) changed.push_back(now[i]);
      }
      Lines expected = also;
      expected.push_back(Utf8(row.property) + "=" + row.value);
      EXPECT_EQ(changed.size(), expected.size()) << type << " " << row.key;
      for (const std::string& line : expected) {
        EXPECT_NE(std::find(changed.begin(), changed.end(), line), changed.end())
            << type << " " << line;
      }
    };
    for (const KeyRow& row : kSharedRows) {
      const std::string value = row.value;
      Lines also;  // an ASX entry answers for its artist and album with the plain ones
      if (type <= 2 && row.key == "Artist"s) also = {"ASX_Artist=" + value};
      if (type <= 2 && row.key == "Album"s) also = {"ASX_Album=" + value};
      check(row, also);
    }
    if (type > 2) continue;
    for (const KeyRow& row : kAsxRows) {
      const std::string value = row.value;
      Lines also;
      if (row.key == "ASX_Artist"s) also = {"Entry_ArtistName=" + value};
      if (row.key == "ASX_Album"s) also = {"Entry_AlbumName=" + value};
      check(row, also);
    }
  }
  EXPECT_EQ(LogLines()[0], "Must set the SourceURL property to obtain the File name ");
}

TEST_F(GenericReaderPropertiesTest, KeysThatAreWriteOnlyOrUnknownChangeNoProperty) {
  for (int type = 1; type <= 6; ++type) {
    ReadNew(OneEntry(type, {}));
    ASSERT_EQ(Kept(), 1) << type;
    const Lines bare = PropertiesOf(*EntryAt(1));
    for (const char* const line :
         {"PlayListName=x", "FileSize=999", "NativeFormat=5", "Title=x", "BitRate=5", "HREF=x"}) {
      ReadNew(OneEntry(type, {line}));
      ASSERT_EQ(Kept(), 1) << type << " " << line;
      EXPECT_EQ(PropertiesOf(*EntryAt(1)), bare) << type << " " << line;
    }
  }
}

TEST_F(GenericReaderPropertiesTest, OnlyTheFirstTwoTypesReadTheAsxKeys) {
  Lines lines;
  for (const KeyRow& row : kAsxRows) lines.push_back(std::string(row.key) + "=" + row.value);
  for (int type = 1; type <= 6; ++type) {
    ReadNew(OneEntry(type, lines));
    ASSERT_EQ(Kept(), 1) << type;  // a plain entry has no such properties and would raise
    EXPECT_EQ(Field(1, u"Entry_ArtistName"), type <= 2 ? "asx artist" : "") << type;
  }
}

}  // namespace
}  // namespace norvo
