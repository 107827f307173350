#include "readers/GenericReader.h"

#include <algorithm>

#include "model/ModelTest.h"
#include "readers/PlaylistFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace std::string_literals;

constexpr StringView kPath = u"C:\\Restored\\Mix.ini";
constexpr const char* kBadType =
    "NVERR_OPFAIL, PLAYLIST::ReadGeneric, Bad Object Type - Unable to Process Entry";

class GenericReaderTest : public PlaylistFixture {
 protected:
  GenericReaderTest() { playlist = component.Create(u"PlayList"); }

  /// Puts the bytes at the path and reads them into the playlist in hand.
  bool ReadBytes(std::string_view bytes) {
    platform->AddFile(kPath, bytes);
    return ToBoolean(CallWith(playlist, u"ReadGeneric", String(kPath)));
  }
  /// The same into a new playlist.
  bool ReadNew(std::string_view bytes) {
    playlist = component.Create(u"PlayList");
    return ReadBytes(bytes);
  }
  ObjectRef EntriesOf() { return ToObject(playlist->Get(u"PlayListEntries")); }
};

/// The lines of a file with these global values behind its version, and with further lines.
std::string Generic(const Lines& globals, const Lines& rest = {}) {
  return "[Global Properties]\r\nPavaneVersion=1.6\r\n" + TextOf(globals) + TextOf(rest);
}

/// A file of the type that declares one entry with these lines.
std::string OneEntry(int type, const Lines& lines) {
  Lines rest = {"[Entry 1 Properties]"};
  rest.insert(rest.end(), lines.begin(), lines.end());
  return Generic({"PlaylistType=" + std::to_string(type), "TotalSongs=1"}, rest);
}

const Lines kAsxGlobals = {"PlaylistName=Mix.asx",   "PlaylistType=1",
                           "OriginalFileName=M.asx", "CreationTime=5/14/2003 10:12:00 AM",
                           "Author=the author",      "Artist=the artist",
                           "Album=the album",        "AllowShuffle=yes",
                           "Title=the title",        "PlayListAttribute=the attribute",
                           "ASX Version=2.5",        "TotalSongs=0"};

TEST_F(GenericReaderTest, AnAsxPlaylistComesBackWithItsOwnProperties) {
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

TEST_F(GenericReaderTest, AnyOtherTypeGetsNeitherTheAsxPropertiesNorTheCreationTime) {
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

TEST_F(GenericReaderTest, AnAsxPlaylistWithoutAVersionIsOfVersionThree) {
  ReadBytes(Generic({"PlaylistType=1"}));
  EXPECT_EQ(Property(u"ASX_Version"), "3.0");
  playlist = component.Create(u"PlayList");
  playlist->Let(u"ASX_Version", String(u"2.0"));
  ReadBytes(Generic({"PlaylistType=1"}));
  EXPECT_EQ(Property(u"ASX_Version"), "3.0");
  ReadNew(Generic({"PlaylistType=1", "ASX Version="}));
  EXPECT_EQ(Property(u"ASX_Version"), "");
}

TEST_F(GenericReaderTest, WhatTheFileLacksKeepsItsValueAndAnEmptyValueIsTaken) {
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

TEST_F(GenericReaderTest, TheTypeThatAHostHasSetServesWhenTheFileTellsNone) {
  playlist->Let(u"PlayListType", std::int32_t{4});
  ReadBytes(Generic({"TotalSongs=1"}));
  EXPECT_EQ(CollectionType(), 4);
  ASSERT_EQ(Kept(), 1);
  EXPECT_TEXT(EntryAt(1)->ClassName(), u"PlsEntry");
}

TEST_F(GenericReaderTest, TheNameIsTakenAsItStandsWhateverTheType) {
  for (const char* const name : {"Road Trip", "Mix.m3u", "a.pls", ".", "x.m3u.bak"}) {
    for (const char* const type : {"3", "4", "0"}) {
      ReadNew(Generic({"PlaylistName=" + std::string(name), "PlaylistType=" + std::string(type)}));
      EXPECT_EQ(Property(u"PlayListName"), name) << type;
    }
  }
}

TEST_F(GenericReaderTest, AnOriginalFileNameThatIsThereStays) {
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

TEST_F(GenericReaderTest, EachKeyOfAnEntryFillsItsPropertyAndNoOther) {
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

TEST_F(GenericReaderTest, KeysThatAreWriteOnlyOrUnknownChangeNoProperty) {
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

TEST_F(GenericReaderTest, OnlyTheFirstTwoTypesReadTheAsxKeys) {
  Lines lines;
  for (const KeyRow& row : kAsxRows) lines.push_back(std::string(row.key) + "=" + row.value);
  for (int type = 1; type <= 6; ++type) {
    ReadNew(OneEntry(type, lines));
    ASSERT_EQ(Kept(), 1) << type;  // a plain entry has no such properties and would raise
    EXPECT_EQ(Field(1, u"Entry_ArtistName"), type <= 2 ? "asx artist" : "") << type;
  }
}

TEST_F(GenericReaderTest, TheClassOfTheEntriesFollowsTheType) {
  constexpr StringView kClasses[] = {u"AsxEntry", u"AsxEntry", u"M3UEntry",
                                     u"PlsEntry", u"PlsEntry", u"M3UEntry"};
  for (std::int32_t type = 1; type <= 6; ++type) {
    ReadNew(OneEntry(type, {}));
    ASSERT_EQ(Kept(), 1) << type;
    EXPECT_TEXT(EntryAt(1)->ClassName(), kClasses[type - 1]) << type;
    EXPECT_EQ(Field(1, u"Entry_EntryType"), std::to_string(type));
  }
}

TEST_F(GenericReaderTest, AnUnknownTypeStopsTheReadingWithOneLogLine) {
  for (const char* const type : {"0", "7", "-1", "2147483647"}) {
    log.clear();
    EXPECT_FALSE(ReadNew(Generic({"PlaylistName=Mix", "PlaylistType=" + std::string(type),
                                  "OriginalFileName=Mix.m3u", "TotalSongs=3"},
                                 {"[Entry 1 Properties]", "SourceURL=http://a"})));
    EXPECT_EQ(LogLines(), Lines({kBadType})) << type;
    EXPECT_EQ(Kept(), 0) << type;
    EXPECT_EQ(Property(u"PlayListName"), "Mix") << type;
    EXPECT_EQ(Property(u"OriginalFileName"), "Mix.m3u") << type;
    EXPECT_EQ(Property(u"PlayListType"), type);
    EXPECT_EQ(std::to_string(CollectionType()), type);
  }
  log.clear();
  ReadNew(Generic({"PlaylistType=7", "TotalSongs=0"}));
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, EntriesThatWereThereStayAndTheNewOnesFollowThem) {
  const std::string file =
      Generic({"PlaylistType=3", "TotalSongs=1"}, {"[Entry 1 Properties]", "SourceURL=http://a"});
  ReadBytes(file);
  ReadBytes(file);
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://a", "http://a"}));
  ReadBytes(Generic({"PlaylistType=7", "TotalSongs=1"}));
  EXPECT_EQ(Kept(), 2);
  EXPECT_EQ(LogLines(), Lines({kBadType}));
}

TEST_F(GenericReaderTest, EveryDeclaredEntryIsMadeWhetherItsSectionExistsOrNot) {
  ReadBytes(Generic({"PlaylistType=3", "TotalSongs=3"},
                    {"[Entry 4 Properties]", "SourceURL=http://four", "[Entry 2 Properties]",
                     "SourceURL=http://two", "[Entry 0 Properties]", "SourceURL=http://none"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"", "http://two", ""}));
  EXPECT_EQ(Property(u"TotalSongs"), "3");
}

TEST_F(GenericReaderTest, AnEntryOfAnotherTypeIsDroppedWithoutAWord) {
  ReadBytes(
      Generic({"PlaylistType=2", "TotalSongs=3"},
              {"[Entry 1 Properties]", "SourceURL=http://1", "EntryType=2", "[Entry 2 Properties]",
               "SourceURL=http://2", "EntryType=1", "[Entry 3 Properties]", "SourceURL=http://3"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://1", "http://3"}));
  ReadNew(OneEntry(3, {"EntryType=4"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, TheSizeOfAnEntryIsWhatTheEntryFindsItself) {
  platform->AddFile(u"C:\\Music\\One.mp3", UntaggedMedia());
  const Lines written = {"FileName=written.mp3", "FileSize=999", "URLType=9"};
  Lines there = {"SourceURL=c:\\music\\ONE.mp3"};
  there.insert(there.end(), written.begin(), written.end());
  ReadBytes(OneEntry(3, there));
  // The address is set while the type is still 0, so that the entry looks for the file.
  EXPECT_EQ(Field(1, u"Entry_FileName"), "One.mp3");
  EXPECT_EQ(Field(1, u"Entry_FileSize"), "200");
  EXPECT_EQ(Field(1, u"Entry_SourceURL"), "c:\\music\\ONE.mp3");
  EXPECT_EQ(Field(1, u"Entry_URLType"), "9");
  Lines gone = {"SourceURL=C:\\Music\\gone.mp3"};
  gone.insert(gone.end(), written.begin(), written.end());
  ReadNew(OneEntry(3, gone));
  EXPECT_EQ(Field(1, u"Entry_FileName"), "written.mp3");
  EXPECT_EQ(Field(1, u"Entry_FileSize"), "0");
}

struct CountRow {
  const char* text;
  int kept;  // -1: the reading ends
};

TEST_F(GenericReaderTest, TheDeclaredCountIsARoundedNumberOrEndsTheReading) {
  constexpr CountRow kRows[] = {
      {"2", 2},        {"0", 0},           {"-1", 0},       {"-32768", 0},  {" 2 ", 2},
      {"+2", 2},       {"2.5", 2},         {"3.5", 4},      {"1.5", 2},     {"0.5", 0},
      {"1e1", 10},     {"002", 2},         {"abc", -1},     {"12,5", -1},   {"", -1},
      {"2 songs", -1}, {"1 2", -1},        {"32768", -1},   {"-32769", -1}, {"99999999999", -1},
      {"1e999", -1},   {"2147483648", -1}, {"32767.5", -1}, {"zwei", -1},   {"0x10", -1},
  };
  for (const CountRow& row : kRows) {
    EXPECT_FALSE(ReadNew(Generic({"PlaylistName=Mix", "PlaylistType=3", "OriginalFileName=M.m3u",
                                  "TotalSongs=" + std::string(row.text)})));
    EXPECT_EQ(Property(u"PlayListName"), "Mix") << row.text;
    EXPECT_EQ(Property(u"OriginalFileName"), "M.m3u") << row.text;
    EXPECT_EQ(Kept(), std::max(row.kept, 0)) << row.text;
    // The count is read before the type.
    EXPECT_EQ(Property(u"PlayListType"), row.kept < 0 ? "0" : "3") << row.text;
    EXPECT_EQ(CollectionType(), row.kept < 0 ? 0 : 3) << row.text;
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, WithoutACountThereAreNoEntries) {
  ReadBytes(Generic({"PlaylistType=3"}, {"[Entry 1 Properties]", "SourceURL=http://a"}));
  EXPECT_EQ(Property(u"PlayListType"), "3");
  EXPECT_EQ(Kept(), 0);
}

TEST_F(GenericReaderTest, TheLargestCountMakesSoManyEntriesOutOfNothing) {
  ReadBytes(Generic({"PlaylistType=3", "TotalSongs=32767"}));
  EXPECT_EQ(Property(u"TotalSongs"), "32767");
}

struct TypeRow {
  const char* text;
  const char* type;  // null: the reading ends
};

TEST_F(GenericReaderTest, ATypeThatIsNoNumberEndsTheReading) {
  constexpr TypeRow kRows[] = {{"abc", nullptr}, {"", nullptr},        {"2147483648", nullptr},
                               {"3,", nullptr},  {"WMP_ASX", nullptr}, {"2.5", "2"},
                               {"3.4", "3"},     {" 6 ", "6"}};
  for (const TypeRow& row : kRows) {
    playlist = component.Create(u"PlayList");
    playlist->Let(u"PlayListType", std::int32_t{5});
    EXPECT_FALSE(ReadBytes(
        Generic({"PlaylistName=Mix", "PlaylistType=" + std::string(row.text), "TotalSongs=1"})));
    EXPECT_EQ(Property(u"PlayListName"), "Mix") << row.text;
    EXPECT_EQ(Property(u"PlayListType"), row.type == nullptr ? "5" : row.type) << row.text;
    EXPECT_EQ(Kept(), row.type == nullptr ? 0 : 1) << row.text;
    EXPECT_EQ(CollectionType() != 0, row.type != nullptr) << row.text;
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, AValueThatDoesNotConvertEndsTheReadingBeforeItsEntry) {
  for (const char* const bad :
       {"HasExtendedInfo=maybe", "HasExtendedInfo=", "URLType=x", "URLType=", "URLType=2147483648",
        "EntryType=x", "ASX_BitRate=fast", "ASX_BitRate=", "ASX_PlayCount=often",
        "ASX_MediaAttribute=32768"}) {
    EXPECT_FALSE(ReadNew(
        Generic({"PlaylistType=1", "TotalSongs=3", "Title=kept"},
                {"[Entry 1 Properties]", "SourceURL=http://1", "[Entry 2 Properties]",
                 "SourceURL=http://2", bad, "[Entry 3 Properties]", "SourceURL=http://3"})));
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://1"})) << bad;
    EXPECT_EQ(Property(u"ASX_Title"), "kept") << bad;
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, WhatIsNoFileChangesNothingAndLogsNothing) {
  platform->AddFolder(u"C:\\Restored\\Folder.ini");
  platform->AddFile(u"C:\\Restored\\Denied.ini", Generic(kAsxGlobals));
  platform->Files().Deny(u"C:\\Restored\\Denied.ini");
  for (const StringView path :
       {u"C:\\Restored\\gone.ini", u"C:\\gone\\Mix.ini", u"X:\\Mix.ini", u"", u"gone.ini",
        u"C:\\Restored\\Folder.ini", u"C:\\Restored\\Denied.ini", u"C:\\"}) {
    playlist = component.Create(u"PlayList");
    playlist->Let(u"PlayListType", std::int32_t{1});
    EXPECT_FALSE(ToBoolean(CallWith(playlist, u"ReadGeneric", String(path)))) << Utf8(path);
    EXPECT_EQ(Property(u"PlayListName") + Property(u"ASX_Version"), "") << Utf8(path);
    EXPECT_EQ(CollectionType(), 0) << Utf8(path);
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(GenericReaderTest, AFileWithoutTheGlobalSectionSetsTheCollectionTypeAlone) {
  for (const char* const bytes :
       {"", "\r\n", "text", "[playlist]\r\nTotalSongs=5\r\n", "[", "=\r\n"}) {
    playlist = component.Create(u"PlayList");
    playlist->Let(u"PlayListType", std::int32_t{3});
    EXPECT_FALSE(ReadBytes(bytes)) << bytes;
    EXPECT_EQ(CollectionType(), 3) << bytes;
    EXPECT_EQ(Kept(), 0) << bytes;
    EXPECT_EQ(Property(u"PlayListName"), "") << bytes;
  }
}

TEST_F(GenericReaderTest, TheCollectionTakesThePlaylistsTypeWhateverItHadBefore) {
  EntriesOf()->Let(u"CollectionType", std::int32_t{5});
  ReadBytes("");
  EXPECT_EQ(CollectionType(), 0);
}

TEST_F(GenericReaderTest, NamesOfKeysAndSectionsAreFoundInAnyCase) {
  ReadBytes(
      "[GLOBAL properties]\r\nplaylistNAME=Mix\r\nPLAYLISTTYPE=3\r\ntotalsongs=1\r\n"
      "[ENTRY 1 properties]\r\nsourceurl=http://a\r\nurltype=9\r\n");
  EXPECT_EQ(Property(u"PlayListName"), "Mix");
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://a"}));
}

TEST_F(GenericReaderTest, TheFirstOfTwoEqualKeysHolds) {
  ReadBytes(Generic({"PlaylistType=3", "TotalSongs=1", "PlaylistName=first", "PlaylistName=second"},
                    {"[Entry 1 Properties]", "Genre=first", "[Entry 1 Properties]", "Genre=second",
                     "Artist=also"}));
  EXPECT_EQ(Property(u"PlayListName"), "first");
  EXPECT_EQ(Field(1, u"Entry_Genre") + Field(1, u"Entry_ArtistName"), "firstalso");
}

TEST_F(GenericReaderTest, LineEndsOfAnyKindAndAMissingLastOneAreTaken) {
  for (const char* const end : {"\r\n", "\n", "\r"}) {
    const std::string e = end;
    ReadNew("[Global Properties]" + e + "PlaylistName=Mix" + e + "PlaylistType=3" + e +
            "TotalSongs=1" + e + e + "[Entry 1 Properties]" + e + "SourceURL=http://a");
    EXPECT_EQ(Property(u"PlayListName"), "Mix");
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://a"}));
  }
}

TEST_F(GenericReaderTest, NulsAreOrdinaryCharactersOfATextAndSpoilANumber) {
  ReadBytes(
      "[Global Properties]\r\nPlaylistName=a\0b\r\nPlaylistType=3\r\nTotalSongs=1\r\n"
      "[Entry 1 Properties]\r\nArtist=c\0d\r\nGenre=e\0f\r\n"s);
  EXPECT_EQ(Property(u"PlayListName"), "a\0b"s);
  EXPECT_EQ(Field(1, u"Entry_Genre"), "e\0f"s);
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "c");  // the entry cuts it
  ReadNew("[Global Properties]\r\nPlaylistName=a\r\nPlaylistType=3\0\r\nTotalSongs=1\r\n"s);
  EXPECT_EQ(Kept(), 0);
}

TEST_F(GenericReaderTest, TextsOfAnyScriptComeBackFromEveryEncoding) {
  const String text =
      u"[Global Properties]\r\nPlaylistName=Größe\r\nPlaylistType=3\r\nTotalSongs=1\r\n\r\n"
      u"[Entry 1 Properties]\r\nArtist=Музыка\r\nSourceURL=http://音楽/\xD83D\xDE00\r\n";
  for (const FileEncoding encoding :
       {FileEncoding::Utf8, FileEncoding::Utf16LittleEndian, FileEncoding::Utf16BigEndian}) {
    ReadNew(EncodeFile(text, encoding, Windows1252()));
    EXPECT_EQ(Property(u"PlayListName"), "Größe");
    EXPECT_EQ(Field(1, u"Entry_ArtistName"), "Музыка");
    EXPECT_EQ(Field(1, u"Entry_SourceURL"), "http://音楽/😀");
  }
  ReadNew(
      "[Global Properties]\r\nPlaylistName=Gr\xF6\xDF"
      "e\r\n");
  EXPECT_EQ(Property(u"PlayListName"), "Größe");
}

TEST_F(GenericReaderTest, AUtf16FileWithoutItsMarkOrCutInHalfIsNoGenericFile) {
  const std::string bytes =
      EncodeFile(u"[Global Properties]\r\nPlaylistName=Mix\r\nPlaylistType=3\r\n",
                 FileEncoding::Utf16LittleEndian, Windows1252());
  EXPECT_FALSE(ReadNew(std::string_view(bytes).substr(2)));
  EXPECT_EQ(Property(u"PlayListName"), "");
  EXPECT_FALSE(ReadNew(std::string_view(bytes).substr(0, bytes.size() - 1)));
  EXPECT_EQ(Property(u"PlayListName"), "Mix");
}

TEST_F(GenericReaderTest, TheResultIsAlwaysFalseAndTheArgumentStays) {
  platform->AddFile(kPath, Generic(kAsxGlobals));
  for (const StringView path : {kPath, StringView(u"C:\\gone.ini")}) {
    Variant argument = String(path);
    EXPECT_EQ(playlist->Call(u"ReadGeneric", Arguments(&argument, 1)), Variant(false));
    EXPECT_EQ(argument, Variant(String(path)));
  }
}

TEST_F(GenericReaderTest, ANameOutOfTheFileIsNotTrustedAsAPath) {
  for (const char* const name : {"..\\Evil", "C:\\Evil", "a/b", "x:y"}) {
    ReadNew(Generic({"PlaylistName=" + std::string(name), "PlaylistType=3", "TotalSongs=1"}));
    ASSERT_EQ(Kept(), 1);
    const std::vector<String> before = platform->Files().AllFiles();
    EXPECT_FALSE(ToBoolean(CallWith(playlist, u"WriteGeneric", String(u"x.m3u")))) << name;
    EXPECT_EQ(Utf8(platform->Files().AllFiles()), Utf8(before)) << name;
  }
}

/// What a reading leaves out on purpose, blanked in the written file.
std::string WithoutLine(std::string text, const std::string& key) {
  for (std::size_t at = text.find("\r\n" + key + "="); at != std::string::npos;
       at = text.find("\r\n" + key + "=", at + 2)) {
    const std::size_t value = at + 2 + key.size() + 1;
    text.erase(value, text.find("\r\n", value) - value);
  }
  return text;
}

TEST_F(GenericReaderTest, AFileThatIsReadAndWrittenAgainDiffersOnlyWhereItIsMeantTo) {
  platform->AddFile(u"C:\\Music\\One.mp3", MediaWithOldTag("Song", "Artist", "Album"));
  const std::string asx =
      TextOf({"<Asx Version=\"3.0\">", "<Title>Best</Title>", "<Entry>",
              "<Ref Href=\"C:\\Music\\One.mp3\" />", "<Param Name=\"Bitrate\" Value=\"128\" />",
              "</Entry>", "</Asx>"});
  const std::string m3u = TextOf({"#EXTINF:215,A - B", "C:\\Music\\One.mp3", "http://host/"});
  const std::string pls =
      TextOf({"[playlist]", "NumberOfEntries=2", "File1=C:\\Music\\One.mp3", "File2=http://host/"});
  const std::pair<std::int32_t, std::string> rows[] = {{1, asx}, {2, asx}, {3, m3u},
                                                       {4, pls}, {5, pls}, {6, m3u}};
  constexpr StringView kWritten = u"C:\\My Documents\\Norvo Media\\KVs\\Mix.ini";
  for (const auto& [type, text] : rows) {
    const String path = type == 1                  ? u"C:\\Music\\Mix.asx"
                        : (type == 4 || type == 5) ? u"C:\\Music\\Mix.pls"
                                                   : u"C:\\Music\\Mix.m3u";
    ASSERT_TRUE(ReadText(path, type, text)) << type;
    ASSERT_GT(Kept(), 0) << type;
    ASSERT_TRUE(ToBoolean(CallWith(playlist, u"WriteGeneric", String(u"Mix.m3u")))) << type;
    std::string expected = platform->Bytes(kWritten);
    playlist = component.Create(u"PlayList");
    CallWith(playlist, u"ReadGeneric", String(kWritten));
    ASSERT_TRUE(ToBoolean(CallWith(playlist, u"WriteGeneric", String(u"Mix.m3u")))) << type;
    if (type != 1) expected = WithoutLine(expected, "CreationTime");
    if (type == 2) {
      expected = WithoutLine(WithoutLine(expected, "Title"), "ASX Version");
    }
    EXPECT_EQ(platform->Bytes(kWritten), expected) << type;
  }
}

TEST_F(GenericReaderTest, NothingEscapesFromAFailingMachine) {
  platform->AddFile(u"C:\\Music\\One.mp3", UntaggedMedia());
  const std::string file = OneEntry(3, {"SourceURL=C:\\Music\\One.mp3", "URLType=0"});
  platform->AddFile(kPath, file);
  for (const bool memory : {false, true}) {
    bool failed = true;
    std::size_t k = 0;
    while (failed) {
      playlist = component.Create(u"PlayList");
      ++k;
      memory ? platform->Log().RunOutOfMemoryAt(k) : platform->FailAt(k, error::kDeviceInputOutput);
      EXPECT_EQ(CallWith(playlist, u"ReadGeneric", String(kPath)), Variant(false)) << k;
      failed = platform->Log().HasFailed();
    }
    EXPECT_GT(k, 2u);
    EXPECT_EQ(Kept(), 1);
  }
}

}  // namespace
}  // namespace norvo
