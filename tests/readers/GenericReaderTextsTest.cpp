#include <algorithm>

#include "readers/GenericReaderFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace std::string_literals;

/// How the texts of a file are taken: numbers, names, line ends and encodings.
class GenericReaderTextsTest : public GenericReaderFixture {};

struct DeclaredRow {
  const char* text;
  int kept;  // -1: the reading ends
};

TEST_F(GenericReaderTextsTest, TheDeclaredCountIsARoundedNumberOrEndsTheReading) {
  constexpr DeclaredRow kRows[] = {
      {"2", 2},        {"0", 0},           {"-1", 0},       {"-32768", 0},  {" 2 ", 2},
      {"+2", 2},       {"2.5", 2},         {"3.5", 4},      {"1.5", 2},     {"0.5", 0},
      {"1e1", 10},     {"002", 2},         {"abc", -1},     {"12,5", -1},   {"", -1},
      {"2 songs", -1}, {"1 2", -1},        {"32768", -1},   {"-32769", -1}, {"99999999999", -1},
      {"1e999", -1},   {"2147483648", -1}, {"32767.5", -1}, {"zwei", -1},   {"0x10", -1},
  };
  for (const DeclaredRow& row : kRows) {
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

TEST_F(GenericReaderTextsTest, WithoutACountThereAreNoEntries) {
  ReadBytes(Generic({"PlaylistType=3"}, {"[Entry 1 Properties]", "SourceURL=http://a"}));
  EXPECT_EQ(Property(u"PlayListType"), "3");
  EXPECT_EQ(Kept(), 0);
}

TEST_F(GenericReaderTextsTest, TheLargestCountMakesSoManyEntriesOutOfNothing) {
  ReadBytes(Generic({"PlaylistType=3", "TotalSongs=32767"}));
  EXPECT_EQ(Property(u"TotalSongs"), "32767");
}

struct EntryTypeRow {
  const char* text;
  const char* type;  // null: the reading ends
};

TEST_F(GenericReaderTextsTest, ATypeThatIsNoNumberEndsTheReading) {
  constexpr EntryTypeRow kRows[] = {{"abc", nullptr}, {"", nullptr},        {"2147483648", nullptr},
                                    {"3,", nullptr},  {"WMP_ASX", nullptr}, {"2.5", "2"},
                                    {"3.4", "3"},     {" 6 ", "6"}};
  for (const EntryTypeRow& row : kRows) {
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

TEST_F(GenericReaderTextsTest, AValueThatDoesNotConvertEndsTheReadingBeforeItsEntry) {
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

TEST_F(GenericReaderTextsTest, NamesOfKeysAndSectionsAreFoundInAnyCase) {
  ReadBytes(
      "[GLOBAL properties]\r\nplaylistNAME=Mix\r\nPLAYLISTTYPE=3\r\ntotalsongs=1\r\n"
      "[ENTRY 1 properties]\r\nsourceurl=http://a\r\nurltype=9\r\n");
  EXPECT_EQ(Property(u"PlayListName"), "Mix");
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://a"}));
}

TEST_F(GenericReaderTextsTest, TheFirstOfTwoEqualKeysHolds) {
  ReadBytes(Generic({"PlaylistType=3", "TotalSongs=1", "PlaylistName=first", "PlaylistName=second"},
                    {"[Entry 1 Properties]", "Genre=first", "[Entry 1 Properties]", "Genre=second",
                     "Artist=also"}));
  EXPECT_EQ(Property(u"PlayListName"), "first");
  EXPECT_EQ(Field(1, u"Entry_Genre") + Field(1, u"Entry_ArtistName"), "firstalso");
}

TEST_F(GenericReaderTextsTest, LineEndsOfAnyKindAndAMissingLastOneAreTaken) {
  for (const char* const end : {"\r\n", "\n", "\r"}) {
    const std::string e = end;
    ReadNew("[Global Properties]" + e + "PlaylistName=Mix" + e + "PlaylistType=3" + e +
            "TotalSongs=1" + e + e + "[Entry 1 Properties]" + e + "SourceURL=http://a");
    EXPECT_EQ(Property(u"PlayListName"), "Mix");
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://a"}));
  }
}

TEST_F(GenericReaderTextsTest, NulsAreOrdinaryCharactersOfATextAndSpoilANumber) {
  ReadBytes(
      "[Global Properties]\r\nPlaylistName=a\0b\r\nPlaylistType=3\r\nTotalSongs=1\r\n"
      "[Entry 1 Properties]\r\nArtist=c\0d\r\nGenre=e\0f\r\n"s);
  EXPECT_EQ(Property(u"PlayListName"), "a\0b"s);
  EXPECT_EQ(Field(1, u"Entry_Genre"), "e\0f"s);
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "c");  // the entry cuts it
  ReadNew("[Global Properties]\r\nPlaylistName=a\r\nPlaylistType=3\0\r\nTotalSongs=1\r\n"s);
  EXPECT_EQ(Kept(), 0);
}

TEST_F(GenericReaderTextsTest, TextsOfAnyScriptComeBackFromEveryEncoding) {
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

TEST_F(GenericReaderTextsTest, AUtf16FileWithoutItsMarkOrCutInHalfIsNoGenericFile) {
  const std::string bytes =
      EncodeFile(u"[Global Properties]\r\nPlaylistName=Mix\r\nPlaylistType=3\r\n",
                 FileEncoding::Utf16LittleEndian, Windows1252());
  EXPECT_FALSE(ReadNew(std::string_view(bytes).substr(2)));
  EXPECT_EQ(Property(u"PlayListName"), "");
  EXPECT_FALSE(ReadNew(std::string_view(bytes).substr(0, bytes.size() - 1)));
  EXPECT_EQ(Property(u"PlayListName"), "Mix");
}

}  // namespace
}  // namespace norvo
