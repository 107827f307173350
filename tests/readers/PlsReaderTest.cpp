#include "readers/PlsReader.h"

#include "readers/PlaylistFixture.h"
#include "readers/TextLines.h"

namespace norvo {
namespace {

constexpr const char* kPlsNotFound = "NVERR_FILE_NOT_FOUND, PLAYLIST::ReadPLS, File Not Found: ";
constexpr const char* kPlsInvalid =
    "NVERR_INVALID_ARG, PLAYLIST::ReadPLS, Invalid Argument or Bad Data: ";
constexpr const char* kWinampFailed =
    "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type WINAMP_PLS returned False";
constexpr const char* kSoniqueFailed =
    "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type SONIQUE_PLS returned False";

class PlsReaderTest : public PlaylistFixture {
 protected:
  PlsReaderTest() {
    for (const StringView path : {u"C:\\Music\\1.mp3", u"C:\\Music\\2.mp3", u"C:\\Music\\3.mp3"}) {
      platform->AddFile(path, UntaggedMedia());
    }
  }
  bool ReadPls(const Lines& lines, std::int32_t type = 4) {
    Lines all = {"[playlist]"};
    all.insert(all.end(), lines.begin(), lines.end());
    return ReadText(u"C:\\Music\\Mix.pls", type, TextOf(all));
  }
};

TEST_F(PlsReaderTest, ReadsReferenceLengthAndTitleOfEachItem) {
  for (const std::int32_t type : {4, 5}) {
    ASSERT_TRUE(
        ReadPls({"NumberOfEntries=2", "File1=1.mp3", "Title1=Artist - Song", "Length1=215",
                 "File2=C:\\Music\\2.mp3", "Title2=Don't Stop (Live)", "Length2=-1", "Version=2"},
                type));
    EXPECT_EQ(CollectionType(), type);
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\1.mp3", "C:\\Music\\2.mp3"}));
    EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"215", "-1"}));
    EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({"Artist - Song", "Dont Stop Live"}));
    EXPECT_EQ(Fields(u"Entry_SongName"), Lines({"Song", ""}));
    EXPECT_EQ(Fields(u"Entry_ArtistName"), Lines({"Artist", ""}));
    EXPECT_EQ(Fields(u"HasExtendedInfo"), Lines({"True", "True"}));
    EXPECT_EQ(Fields(u"Entry_EntryType"), Lines(2, std::to_string(type)));
    EXPECT_EQ(Utf8(EntryAt(1)->ClassName()), "PlsEntry");
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlsReaderTest, ItemsAreRegisteredUnderTheMusicLabel) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=1", "File1=C:\\Music\\1.mp3", "Title1=A - B"}));
  EXPECT_EQ(Registered(),
            Lines({"C:\\Music\\1.mp3 | GET_SHELL_FOLDER,5,Music PlayLists,C:\\My Documents\\Norvo "
                   "Media\\Music\\A\\ | Music PlayLists"}));
}

struct PlsCountRow {
  const char* declared;
  bool result;
  int kept;
};

TEST_F(PlsReaderTest, TheDeclaredCountBoundsTheItems) {
  const PlsCountRow rows[] = {
      {"0", true, 0},     {"1", true, 1},           {"2", true, 2},
      {"3", true, 3},     {"4", true, 3},           {"2147483647", true, 3},
      {" 2 ", true, 2},   {"-1", true, 0},          {"1.5", true, 2},
      {"2.5", true, 2},   {"2147483648", false, 0}, {"99999999999999999999", false, 0},
      {"many", false, 0}, {"", false, 0},           {"2 songs", false, 0},
  };
  for (const PlsCountRow& row : rows) {
    log.clear();
    EXPECT_EQ(ReadPls({"File1=1.mp3", "File2=2.mp3", "File3=3.mp3",
                       std::string("NumberOfEntries=") + row.declared}),
              row.result)
        << "NumberOfEntries=" << row.declared;
    EXPECT_EQ(Kept(), row.kept) << "NumberOfEntries=" << row.declared;
    EXPECT_EQ(Property(u"TotalSongs"), std::to_string(row.kept));
    EXPECT_EQ(LogLines(), row.result ? Lines() : Lines({kWinampFailed}))
        << "NumberOfEntries=" << row.declared;
  }
}

TEST_F(PlsReaderTest, TheFailureLineNamesTheType) {
  EXPECT_FALSE(ReadPls({"NumberOfEntries=x"}, 5));
  EXPECT_EQ(LogLines(), Lines({kSoniqueFailed}));
}

TEST_F(PlsReaderTest, WithoutACountThereAreNoEntriesAndTheReadSucceeds) {
  EXPECT_TRUE(ReadPls({"File1=1.mp3"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.pls", 4, ""));
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.pls", 4, "NumberOfEntries=1\r\nFile1=1.mp3\r\n"));
  EXPECT_TRUE(
      ReadText(u"C:\\Music\\Mix.pls", 4, "[other]\r\nNumberOfEntries=1\r\nFile1=1.mp3\r\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(CollectionType(), 4);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlsReaderTest, AFileThatCannotBeLoadedHasNoEntriesAndTheReadSucceeds) {
  platform->AddFile(u"C:\\Music\\Mix.pls", "[playlist]\r\nNumberOfEntries=1\r\nFile1=1.mp3\r\n");
  platform->Files().Deny(u"C:\\Music\\Mix.pls");
  playlist = NewPlayList(5);
  EXPECT_TRUE(Read(u"C:\\Music\\Mix.pls"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(CollectionType(), 5);
}

TEST_F(PlsReaderTest, AHugeCountCostsNothing) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=2000000000", "File1=1.mp3", "File2000000000=2.mp3",
                       "File2000000001=3.mp3"}));
  EXPECT_EQ(Kept(), 2);
}

TEST_F(PlsReaderTest, AMissingItemIsSkippedWithoutAWord) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=3", "File1=1.mp3", "File3=3.mp3", "Title2=x"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\1.mp3", "C:\\Music\\3.mp3"}));
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlsReaderTest, ItemsComeInTheOrderOfTheirNumbers) {
  ASSERT_TRUE(ReadPls({"File3=3.mp3", "File1=1.mp3", "File2=2.mp3", "NumberOfEntries=3"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"),
            Lines({"C:\\Music\\1.mp3", "C:\\Music\\2.mp3", "C:\\Music\\3.mp3"}));
}

TEST_F(PlsReaderTest, NumbersWithLeadingZerosAndOtherKeysAreNoItems) {
  ASSERT_TRUE(
      ReadPls({"NumberOfEntries=3", "File01=1.mp3", "File0=1.mp3", "File=1.mp3", "File1a=1.mp3",
               "File 1=1.mp3", "File-1=1.mp3", "Files1=1.mp3", "File2=2.mp3"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\2.mp3"}));
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlsReaderTest, NamesOfSectionAndKeysIgnoreCase) {
  ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.pls", 4,
                       "[PLAYLIST]\r\nNUMBEROFENTRIES=1\r\nfile1=1.mp3\r\nTITLE1=A - B\r\n"
                       "length1=9\r\n"));
  EXPECT_EQ(Fields(u"Entry_SongName"), Lines({"B"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"9"}));
}

TEST_F(PlsReaderTest, TheFirstOfTwoEqualItemsHolds) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=1", "File1=1.mp3", "File1=2.mp3"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\1.mp3"}));
}

TEST_F(PlsReaderTest, LinesMayEndInLineFeedsOrCarriageReturnsAlone) {
  for (const std::string& end : {std::string("\n"), std::string("\r"), std::string("\r\n")}) {
    ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.pls", 4,
                         "[playlist]" + end + "NumberOfEntries=1" + end + "File1=1.mp3"));
    EXPECT_EQ(Kept(), 1);
  }
}

TEST_F(PlsReaderTest, AMissingFileIsLoggedByItsResolvedPath) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=2", "File1=gone.mp3", "Title1=A - B", "File2=2.mp3"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({std::string(kPlsNotFound) + "C:\\Music\\gone.mp3"}));
}

TEST_F(PlsReaderTest, AFileThatIsNoMediaIsLoggedAsInvalid) {
  platform->AddFile(u"C:\\Music\\readme.txt", "text");
  ASSERT_TRUE(ReadPls({"NumberOfEntries=1", "File1=readme.txt"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines({std::string(kPlsInvalid) + "C:\\Music\\readme.txt"}));
}

TEST_F(PlsReaderTest, AnEmptyReferenceIsInvalidAndLogsTheMissingAddressFirstWithoutATitle) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=2", "File1=", "File2=", "Title2=Song"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines({kNoName, kPlsInvalid, kPlsInvalid}));
}

TEST_F(PlsReaderTest, TheTotalIsTheNumberOfKeptEntriesWhateverTheFileDeclares) {
  Lines lines = {"NumberOfEntries=10"};
  for (int i = 1; i <= 10; ++i) {
    lines.push_back("File" + std::to_string(i) + (i <= 7 ? "=1.mp3" : "=gone.mp3"));
  }
  ASSERT_TRUE(ReadPls(lines));
  EXPECT_EQ(Property(u"TotalSongs"), "7");
}

TEST_F(PlsReaderTest, AnItemWithoutATitleTakesItsDetailsFromTheTagOrTheFileName) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithOldTag("Song", "Artist", "Album"));
  platform->AddFile(u"C:\\Music\\5 - Band - Track.mp3", UntaggedMedia());
  ASSERT_TRUE(
      ReadPls({"NumberOfEntries=2", "File1=t.mp3", "File2=C:\\Music\\5 - Band - Track.mp3"}));
  EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({"Artist - Song", "Band - Track"}));
  EXPECT_EQ(Fields(u"Entry_TrackNumber"), Lines({"", "5"}));
  EXPECT_EQ(Fields(u"HasExtendedInfo"), Lines({"True", "True"}));
}

TEST_F(PlsReaderTest, AnItemWithALengthAndNoTitleHasNoTitle) {
  ASSERT_TRUE(ReadPls({"NumberOfEntries=1", "File1=1.mp3", "Length1=215"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"215"}));
  EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({""}));
  EXPECT_EQ(Fields(u"HasExtendedInfo"), Lines({"False"}));
}

TEST_F(PlsReaderTest, AReaderOfAMissingFileFindsNoEntries) {
  PlaylistRecord record;
  record.type = 5;
  EXPECT_TRUE(ReadPLS(component, record, u"gone.pls", u"C:\\Music"));
  EXPECT_EQ(record.entries->TotalSongs(), 0);
  EXPECT_EQ(record.entries->CollectionType(), 5);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlsReaderTest, TheDeclaredCountStaysInTheStore) {
  PlaylistRecord record;
  record.type = 4;
  platform->AddFile(u"C:\\Music\\Mix.pls", "[playlist]\r\nNumberOfEntries=0\r\n");
  EXPECT_TRUE(ReadPLS(component, record, u"Mix.pls", u"C:\\Music\\"));
  EXPECT_TEXT(ToText(record.totalSongsStore), u"0");
  platform->AddFile(u"C:\\Music\\Mix.pls", "[playlist]\r\nNumberOfEntries=10\r\n");
  EXPECT_TRUE(ReadPLS(component, record, u"Mix.pls", u"C:\\Music"));
  EXPECT_TEXT(ToText(record.totalSongsStore), u"10");
}

TEST_F(PlsReaderTest, OneEntryMoreThanAHundredThousandEndsTheReading) {
  Lines lines = {"NumberOfEntries=200000"};
  constexpr std::int32_t kMost = 100'000;
  for (int i = 1; i <= kMost; ++i) lines.push_back("File" + std::to_string(i) + "=http://a/");
  EXPECT_TRUE(ReadPls(lines));
  EXPECT_EQ(Kept(), kMost);
  lines.push_back("File100001=http://a/");
  EXPECT_FALSE(ReadPls(lines));
  EXPECT_EQ(Kept(), kMost);
}

TEST_F(PlsReaderTest, ATitleThatIsLongerThanAnyLineEndsTheReading) {
  for (const std::size_t more : {std::size_t{0}, std::size_t{1}}) {
    const std::string title(kLongestLine + more, 'x');
    EXPECT_EQ(ReadPls({"NumberOfEntries=1", "File1=1.mp3", "Title1=" + title}), more == 0);
    EXPECT_EQ(Kept(), more == 0 ? 1 : 0);
  }
}

}  // namespace
}  // namespace norvo
