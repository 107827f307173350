#include "readers/M3uReader.h"

#include "readers/PlaylistFixture.h"
#include "readers/TextLines.h"

namespace norvo {
namespace {

constexpr const char* kM3uNotFound = "NVERR_FILE_NOT_FOUND, PLAYLIST::ReadM3U, File Not Found: ";
constexpr const char* kM3uInvalid =
    "NVERR_INVALID_ARG, PLAYLIST::ReadM3U, Invalid Argument or Bad Data: ";
constexpr const char* kFailed =
    "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U returned False";

class M3uReaderTest : public PlaylistFixture {
 protected:
  M3uReaderTest() {
    platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia());
    platform->AddFile(u"C:\\Music\\b.mp3", UntaggedMedia());
  }
  bool ReadM3u(std::string_view text) { return ReadText(u"C:\\Music\\Mix.m3u", 3, text); }
  bool ReadLines(const Lines& lines) { return ReadM3u(TextOf(lines)); }
};

TEST_F(M3uReaderTest, ReadsBareAndExtendedItemsInOrder) {
  ASSERT_TRUE(ReadLines({"#EXTM3U", "#EXTINF:215,Artist - Song", "a.mp3", "C:\\Music\\b.mp3"}));
  EXPECT_EQ(CollectionType(), 3);
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}));
  EXPECT_EQ(Fields(u"Entry_EntryType"), Lines({"3", "3"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"215", ""}));
  EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({"Artist - Song", ""}));
  EXPECT_EQ(Utf8(EntryAt(1)->ClassName()), "M3UEntry");
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(M3uReaderTest, TheLabelsOfBareAndExtendedItemsDiffer) {
  ASSERT_TRUE(ReadLines({"#EXTINF:1,x", "C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}));
  EXPECT_EQ(Registered(),
            Lines({"C:\\Music\\a.mp3 | GET_SHELL_FOLDER,5,Media PlayLists,C:\\My Documents\\Norvo "
                   "Media\\Music\\ | Media PlayLists",
                   "C:\\Music\\b.mp3 | GET_SHELL_FOLDER,5,Music PlayLists,C:\\My Documents\\Norvo "
                   "Media\\Music\\ | Music PlayLists"}));
}

TEST_F(M3uReaderTest, AHeaderIsSkippedWhereverItStands) {
  ASSERT_TRUE(ReadLines({"a.mp3", "#EXTM3U", "extm3u", "text #ExtM3U text", "b.mp3"}));
  EXPECT_EQ(Kept(), 2);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(M3uReaderTest, ALineThatHoldsBothWordsIsAHeader) {
  ASSERT_TRUE(ReadLines({"#EXTINF:1,EXTM3U", "a.mp3"}));
  EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({""}));
}

TEST_F(M3uReaderTest, ExtendedInformationIsRecognisedAnywhereInALine) {
  ASSERT_TRUE(ReadLines({"x extinf 123,Artist - Song", "a.mp3"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"123"}));
}

TEST_F(M3uReaderTest, EmptyLinesAreSkippedAndBlankOnesAreNot) {
  ASSERT_TRUE(ReadM3u("\r\n\r\na.mp3\r\n\r\n   \r\nb.mp3\r\n\r\n"));
  EXPECT_EQ(Kept(), 2);
  EXPECT_EQ(LogLines(), Lines({kNoName, kM3uInvalid}));
}

TEST_F(M3uReaderTest, AnEmptyLineBehindExtendedInformationIsItsReference) {
  ASSERT_TRUE(ReadLines({"#EXTINF:1,Artist - Song", "", "a.mp3"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({kM3uInvalid}));
}

TEST_F(M3uReaderTest, AnEmptyReferenceWithoutATitleLogsTheMissingAddressFirst) {
  ASSERT_TRUE(ReadLines({"#EXTINF:1", "", "a.mp3"}));
  EXPECT_EQ(LogLines(), Lines({kNoName, kM3uInvalid}));
}

TEST_F(M3uReaderTest, ACommentIsAFileReferenceThatIsNotFound) {
  ASSERT_TRUE(ReadLines({"# my list", "a.mp3"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({std::string(kM3uNotFound) + "C:\\Music\\# my list"}));
}

TEST_F(M3uReaderTest, ASecondExtendedLineIsTheReferenceOfTheFirst) {
  ASSERT_TRUE(ReadLines({"#EXTINF:1,One", "#EXTINF:2,Two", "a.mp3"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({""}));
  EXPECT_EQ(LogLines(), Lines({std::string(kM3uNotFound) + "C:\\Music\\#EXTINF:2,Two"}));
}

TEST_F(M3uReaderTest, AStreamBehindExtendedInformationIsKeptUnregistered) {
  ASSERT_TRUE(ReadLines({"#EXTINF:-1,Radio", "http://host:8000/live"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({":-1"}));
  EXPECT_EQ(Fields(u"Entry_URLType"), Lines({"9"}));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"http://host:8000/live"}));
  EXPECT_EQ(Registered(), Lines());
}

TEST_F(M3uReaderTest, ExtendedInformationAsTheLastLineEndsTheReadAndWhatWasReadStays) {
  ASSERT_FALSE(ReadM3u("a.mp3\r\n#EXTINF:1,Artist - Song"));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(Registered().size(), 1u);
  EXPECT_EQ(component.MediaBytes(), 200.0);
  EXPECT_EQ(LogLines(), Lines({kFailed}));
}

TEST_F(M3uReaderTest, ExtendedInformationBeforeTheLastLineEndHasAnEmptyReference) {
  ASSERT_TRUE(ReadM3u("a.mp3\r\n#EXTINF:1,Artist - Song\r\n"));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({kM3uInvalid}));
}

TEST_F(M3uReaderTest, AnEmptyFileFails) {
  for (const std::string& text : {std::string(), std::string("\xEF\xBB\xBF"),
                                  std::string("\xFF\xFE"), std::string("\xFE\xFF")}) {
    log.clear();
    EXPECT_FALSE(ReadM3u(text));
    EXPECT_EQ(CollectionType(), 3);
    EXPECT_EQ(LogLines(), Lines({kFailed})) << "bytes: " << text.size();
  }
}

TEST_F(M3uReaderTest, AFileOfOneLineEndIsReadAndHoldsNothing) {
  EXPECT_TRUE(ReadM3u("\r\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(M3uReaderTest, AFileThatCannotBeOpenedFailsWithBothLines) {
  platform->AddFile(u"C:\\Music\\Mix.m3u", "a.mp3");
  platform->Files().Deny(u"C:\\Music\\Mix.m3u");
  playlist = NewPlayList(3);
  EXPECT_FALSE(Read(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(LogLines(),
            Lines({"NVERR_OPFAIL, PLAYLIST::ReadM3U, Failed to recieve the TextStream reference!",
                   kFailed}));
}

TEST_F(M3uReaderTest, LinesEndAtPairsOnly) {
  EXPECT_TRUE(ReadM3u("a.mp3\nb.mp3\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines().size(), 1u);
  EXPECT_TRUE(ReadM3u("a.mp3\rb.mp3\r"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_TRUE(ReadM3u("#EXTM3U\na.mp3\nb.mp3\n"));
  EXPECT_EQ(Kept(), 0);
}

TEST_F(M3uReaderTest, NulsCutALine) {
  EXPECT_TRUE(ReadM3u(std::string("  a.mp3  \0EXTM3U\r\n\0#EXTINF\r\nb.mp3\0\0", 35)));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}));
  EXPECT_EQ(LogLines(), Lines({kNoName, kM3uInvalid}));
}

TEST_F(M3uReaderTest, ThirtyTwoThousandSevenHundredAndSixtySevenLinesAreTheMost) {
  Lines lines(32766, "#EXTM3U");
  lines.emplace_back("a.mp3");
  const std::string most = TextOf(lines);
  EXPECT_TRUE(ReadM3u(most));
  EXPECT_EQ(Kept(), 1);
  EXPECT_TRUE(ReadM3u(most.substr(0, most.size() - 2)));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(M3uReaderTest, WithOneLineMoreTheReadFailsBehindThatLine) {
  Lines lines(32766, "#EXTM3U");
  lines.emplace_back("a.mp3");
  lines.emplace_back("b.mp3");
  const std::string tooLong = TextOf(lines);
  for (const std::string& text :
       {tooLong, tooLong.substr(0, tooLong.size() - 2), tooLong + "c.mp3"}) {
    log.clear();
    EXPECT_FALSE(ReadM3u(text));
    EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}));
    EXPECT_EQ(LogLines(), Lines({kFailed}));
  }
}

TEST_F(M3uReaderTest, AnInformationLineReachesNoFurtherThanTheLastLineThatIsRead) {
  Lines lines(32766, "#EXTM3U");
  lines.emplace_back("#EXTINF:100,A - B");
  lines.emplace_back("a.mp3");
  EXPECT_FALSE(ReadM3u(TextOf(lines)));
  EXPECT_EQ(Fields(u"Entry_SongTitle"), Lines({"A - B"}));
  lines.insert(lines.begin(), "#EXTM3U");
  EXPECT_FALSE(ReadM3u(TextOf(lines)));
  EXPECT_EQ(Kept(), 0);
}

TEST_F(M3uReaderTest, HugeLinesAreReferencesAndTitlesLikeOthers) {
  const std::string huge(2'000'000, '-');
  EXPECT_TRUE(ReadLines({"#EXTINF:100," + huge, "a.mp3", huge, "b.mp3"}));
  EXPECT_EQ(Kept(), 2);
  EXPECT_EQ(Field(1, u"Entry_SongTitle").size(), huge.size());
  ASSERT_EQ(log.size(), 1u);
  EXPECT_TRUE(LogLines()[0].starts_with(kM3uNotFound));
}

TEST(M3uSplittingTest, ItemsKeepTheirInformationLine) {
  bool complete = false;
  const auto items = SplitM3u(SplitLines(u"#EXTM3U\r\n  #EXTINF:1,x  \r\n a \r\nb"), complete);
  EXPECT_TRUE(complete);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_TEXT(items[0].reference, u"a");
  EXPECT_TEXT(items[0].info, u"#EXTINF:1,x");
  EXPECT_TRUE(items[0].extended);
  EXPECT_TEXT(items[1].reference, u"b");
  EXPECT_TEXT(items[1].info, u"");
  EXPECT_FALSE(items[1].extended);
}

// It would take hours if the time grew with the square of the length.
TEST(M3uSplittingTest, ALineOfVeryManyMarksIsJudgedAsQuickly) {
  String line;
  for (int i = 0; i < 1'000'000; ++i) line += u"EXTINF";
  bool complete = false;
  const auto items = SplitM3u({line, u"a", line, u"#EXTM3U"}, complete);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_TRUE(items[0].extended);
  EXPECT_EQ(items[0].info.size(), line.size());
}

class MmjbReaderTest : public M3uReaderTest {
 protected:
  static constexpr const char* kMmjbNotFound =
      "NVERR_FILE_NOT_FOUND, PLAYLIST::ReadMMJB, File Not Found: ";
  static constexpr const char* kMmjbInvalid =
      "NVERR_INVALID_ARG, PLAYLIST::ReadMMJB, Invalid Argument or Bad Data: ";
  bool ReadMmjb(std::string_view text) { return ReadText(u"C:\\Music\\Mix.m3u", 6, text); }
};

TEST_F(MmjbReaderTest, EveryLineIsAReference) {
  ASSERT_TRUE(ReadMmjb("#EXTM3U\r\nC:\\Music\\a.mp3\r\n#EXTINF:215,Artist - Song\r\nb.mp3\r\n"));
  EXPECT_EQ(CollectionType(), 6);
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"}));
  EXPECT_EQ(Fields(u"Entry_EntryType"), Lines({"6", "6"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"", ""}));
  EXPECT_EQ(LogLines(),
            Lines({std::string(kMmjbNotFound) + "C:\\Music\\#EXTM3U",
                   std::string(kMmjbNotFound) + "C:\\Music\\#EXTINF:215,Artist - Song"}));
}

TEST_F(MmjbReaderTest, EmptyLinesAreEmptyReferences) {
  ASSERT_TRUE(ReadMmjb("\r\nC:\\Music\\a.mp3\r\n\r\n"));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({kNoName, kMmjbInvalid, kNoName, kMmjbInvalid}));
}

TEST_F(MmjbReaderTest, AllItemsAreRegisteredUnderTheMusicLabel) {
  ASSERT_TRUE(ReadMmjb("C:\\Music\\a.mp3\r\n"));
  ASSERT_EQ(platform->Records().size(), 1u);
  EXPECT_TEXT(platform->Records()[0].category, u"Music PlayLists");
}

TEST_F(MmjbReaderTest, LinesEndAtLineFeedsToo) {
  ASSERT_TRUE(ReadMmjb("a.mp3\nb.mp3\n"));
  EXPECT_EQ(Kept(), 2);
  ASSERT_TRUE(ReadMmjb("a.mp3\nb.mp3"));
  EXPECT_EQ(Kept(), 2);
}

TEST_F(MmjbReaderTest, ALoneCarriageReturnEndsNoLine) {
  ASSERT_TRUE(ReadMmjb("a.mp3\rb.mp3\r\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines().size(), 1u);
}

TEST_F(MmjbReaderTest, AnEmptyFileIsReadAndHoldsNothing) {
  EXPECT_TRUE(ReadMmjb(""));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(MmjbReaderTest, AFileThatIsNoMediaIsLoggedAsInvalid) {
  platform->AddFile(u"C:\\Music\\readme.txt", "text");
  ASSERT_TRUE(ReadMmjb("C:\\Music\\readme.txt"));
  EXPECT_EQ(LogLines(), Lines({std::string(kMmjbInvalid) + "C:\\Music\\readme.txt"}));
}

TEST_F(MmjbReaderTest, ThereIsNoLimitOfLines) {
  std::string text;
  for (int i = 0; i < 32800; ++i) text += "http://host/\r\n";
  EXPECT_TRUE(ReadMmjb(text));
  EXPECT_EQ(Kept(), 32800);
}

TEST_F(MmjbReaderTest, AFileThatCannotBeOpenedFailsWithBothLines) {
  platform->AddFile(u"C:\\Music\\Mix.m3u", "a.mp3");
  platform->Files().Deny(u"C:\\Music\\Mix.m3u");
  playlist = NewPlayList(6);
  EXPECT_FALSE(Read(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(
      LogLines(),
      Lines({"NVERR_OPFAIL, PLAYLIST::ReadMMJB, Failed to recieve the TextStream reference!",
             "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadMMJB for type MMJB_M3U returned False"}));
}

TEST_F(M3uReaderTest, AMusicMatchListKeepsSoManyEntriesAndThenFails) {
  constexpr int kMost = 100'000;
  for (const int lines : {kMost, kMost + 1}) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "http://a\r\n";
    EXPECT_EQ(ReadText(u"C:\\Music\\Long.m3u", 6, text), lines == kMost);
    const ObjectRef entries = std::get<ObjectRef>(playlist->Get(u"PlayListEntries"));
    EXPECT_EQ(std::get<std::int32_t>(entries->Get(u"TotalSongs")), kMost);
  }
}

}  // namespace
}  // namespace norvo
