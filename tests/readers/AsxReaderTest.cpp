#include "readers/AsxReader.h"

#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

constexpr const char* kNotOpened =
    "NVERR_OPFAIL, PLAYLIST::ReadASX, Failed to recieve the TextStream Reference!";
constexpr const char* kNotAdded =
    "NVERR_OPFAIL, PLAYLIST::ReadASX, Failed to Add Entry Item to Entries Collection";
constexpr const char* kEntryNotFound = "NVERR_FILE_NOT_FOUND, PLAYLIST::AddEntry, File Not Found: ";
constexpr const char* kEntryInvalid =
    "NVERR_INVALID_ARG, PLAYLIST::AddEntry, Invalid Argument or Bad Data: ";
constexpr const char* kAsxFailed =
    "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX returned False";
constexpr const char* kM3uFailed =
    "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_M3U returned False";
constexpr const char* kRef = "<Ref Href=\"C:\\Music\\a.mp3\" />";

class AsxReaderTest : public PlaylistFixture {
 protected:
  AsxReaderTest() { platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia()); }
  bool ReadLines(const Lines& lines) { return ReadText(u"C:\\Music\\Mix.asx", 1, TextOf(lines)); }
};

TEST_F(AsxReaderTest, ReadsAllElementsOfAnEntry) {
  ASSERT_TRUE(ReadLines({"<ASX Version=\"3.0\">", "<Entry>", "<Abstract>An abstract</Abstract>",
                         "<Ref Href=\"C:\\Music\\a.mp3\" />", "<Duration value=\"00:03:35.000\" />",
                         "<Author>An author</Author>", "<Title>A title</Title>",
                         "<Copyright>2003</Copyright>", "</Entry>", "</ASX>"}));
  ASSERT_EQ(Kept(), 1);
  EXPECT_EQ(Field(1, u"Abstract"), "An abstract");
  EXPECT_EQ(Field(1, u"HREF"), "C:\\Music\\a.mp3");
  EXPECT_EQ(Field(1, u"Entry_SourceURL"), "C:\\Music\\a.mp3");
  EXPECT_EQ(Field(1, u"Entry_Duration"), "00:03:35.000");
  EXPECT_EQ(Field(1, u"ASX_Author"), "An author");
  EXPECT_EQ(Field(1, u"ASX_Title"), "A title");
  EXPECT_EQ(Field(1, u"ASX_SongName"), "A title");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "A title");
  EXPECT_EQ(Field(1, u"Copyright"), "2003");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True");
  EXPECT_EQ(Field(1, u"Entry_PlayListName"), "");
  EXPECT_EQ(Utf8(EntryAt(1)->ClassName()), "AsxEntry");
  EXPECT_EQ(Property(u"ASX_Version"), "3.0");
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(AsxReaderTest, ReadsTheElementsOfThePlaylist) {
  ASSERT_TRUE(ReadLines({"<Asx Version=\"3.1\">", "<Title>Party</Title>", "<Author>Me</Author>"}));
  EXPECT_EQ(Property(u"ASX_Version"), "3.1");
  EXPECT_EQ(Property(u"ASX_Title"), "Party");
  EXPECT_EQ(Property(u"ASX_Author"), "Me");
  EXPECT_EQ(Kept(), 0);
}

TEST_F(AsxReaderTest, TheSecondTitleOfAnEntryWinsAndTheSongNamesKeepTheFirst) {
  ASSERT_TRUE(ReadLines(
      {"<Entry>", "<Title>First</Title>", "<Title>The second</Title>", kRef, "</Entry>"}));
  EXPECT_EQ(Field(1, u"ASX_Title"), "The second");
  EXPECT_EQ(Field(1, u"ASX_SongName"), "First");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "First");
}

TEST_F(AsxReaderTest, AnAbstractWithAnEqualsSignIsEmptyAndSoReplacesTheOneBefore) {
  ASSERT_TRUE(ReadLines(
      {"<Entry>", "<Abstract>Before</Abstract>", "<Abstract>1+1=2</Abstract>", kRef, "</Entry>"}));
  EXPECT_EQ(Field(1, u"Abstract"), "");
}

TEST_F(AsxReaderTest, TitleAuthorAndCopyrightTakeTheirTextAlsoWithAnEqualsSign) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<Title>1+1=2</Title>", "<Author>a=b</Author>",
                         "<Copyright>c=d</Copyright>", kRef, "</Entry>"}));
  EXPECT_EQ(Field(1, u"ASX_Title"), "1+1=2");
  EXPECT_EQ(Field(1, u"ASX_Author"), "a=b");
  EXPECT_EQ(Field(1, u"Copyright"), "c=d");
}

TEST_F(AsxReaderTest, ReferenceAndDurationAreRecognisedBehindOtherElements) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<x/><Ref Href=\"C:\\Music\\a.mp3\"/>",
                         "<x/><Duration value=\"00:01:00.000\"/>", "</Entry>"}));
  EXPECT_EQ(Fields(u"HREF"), Lines({"C:\\Music\\a.mp3"}));
  EXPECT_EQ(Fields(u"Entry_Duration"), Lines({"00:01:00.000"}));
}

TEST_F(AsxReaderTest, AnEntryEndBehindAnotherElementOnItsLineIsNotSeen) {
  ASSERT_TRUE(ReadLines({"<Entry>", std::string(kRef) + "</Entry>", "<Title>Later</Title>"}));
  EXPECT_EQ(Kept(), 0);
  ASSERT_TRUE(
      ReadLines({"<Entry>", std::string(kRef) + "</Entry>", "<Title>Later</Title>", "</Entry>"}));
  EXPECT_EQ(Fields(u"ASX_Title"), Lines({"Later"}));
}

TEST_F(AsxReaderTest, AnEntryOnOneLineIsOnlyStarted) {
  ASSERT_TRUE(ReadLines({"<Entry>" + std::string(kRef) + "</Entry>", kRef, "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, ASecondEntryStartInsideAnEntryIsIgnored) {
  ASSERT_TRUE(
      ReadLines({"<Entry>", "<Title>One</Title>", "<Entry>", kRef, "</Entry>", "</Entry>"}));
  EXPECT_EQ(Fields(u"ASX_Title"), Lines({"One"}));
}

TEST_F(AsxReaderTest, AnEntryThatIsStillOpenAtTheEndIsNotAdded) {
  ASSERT_TRUE(ReadLines({"<Entry>", kRef}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(Registered(), Lines());
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(AsxReaderTest, WhatFollowsTheEndOfThePlaylistIsIgnored) {
  ASSERT_TRUE(ReadLines({"</Asx>", "<Entry>", kRef, "</Entry>", "<Title>Late</Title>"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(Property(u"ASX_Title"), "");
}

TEST_F(AsxReaderTest, TheEndOfThePlaylistInsideAnEntryIsIgnored) {
  ASSERT_TRUE(ReadLines({"<Entry>", "</Asx>", kRef, "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, ABannerHidesEveryLineUpToTheOneThatHoldsItsEnd) {
  ASSERT_TRUE(ReadLines({"<Banner href=\"b.gif\">", "<Entry>", kRef, "</Entry>", "</Asx>",
                         "<Title>Hidden</Title>", " text </banner> <Title>Hidden</Title>",
                         "<Entry>", kRef, "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(Property(u"ASX_Title"), "");
}

TEST_F(AsxReaderTest, ABannerThatEndsOnItsOwnLineHidesNothing) {
  ASSERT_TRUE(ReadLines({"<Banner href=\"b.gif\"></BANNER>", "<Title>Seen</Title>"}));
  EXPECT_EQ(Property(u"ASX_Title"), "Seen");
}

TEST_F(AsxReaderTest, ABannerInsideAnEntryIsAnUnknownElement) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<Banner href=\"b.gif\">", kRef, "</Banner>", "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, AnEntryWithoutAReferenceIsDroppedAsInvalid) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<Title>No reference</Title>", "</Entry>"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines({kEntryInvalid}));
}

TEST_F(AsxReaderTest, AMissingFileIsLoggedTwiceAndTheWalkGoesOn) {
  ASSERT_TRUE(ReadLines(
      {"<Entry>", "<Ref Href=\"C:\\gone.mp3\"/>", "</Entry>", "<Entry>", kRef, "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
  EXPECT_EQ(LogLines(), Lines({std::string(kEntryNotFound) + "C:\\gone.mp3", kNotAdded}));
}

TEST_F(AsxReaderTest, AFileThatIsNoMediaIsLoggedAsInvalidAlone) {
  platform->AddFile(u"C:\\Music\\readme.txt", "text");
  ASSERT_TRUE(ReadLines({"<Entry>", "<Ref Href=\"readme.txt\"/>", "</Entry>"}));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines({std::string(kEntryInvalid) + "C:\\Music\\readme.txt"}));
}

TEST_F(AsxReaderTest, TheReferenceIsStoredAsItWasResolved) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<Ref Href=\"..\\Music\\a.mp3\"/>", "</Entry>"}));
  EXPECT_EQ(Field(1, u"HREF"), "C:\\Music\\a.mp3");
  EXPECT_EQ(Field(1, u"Entry_SourceURL"), "C:\\Music\\a.mp3");
}

TEST_F(AsxReaderTest, EntriesAreRegisteredUnderTheMusicLabel) {
  ASSERT_TRUE(ReadLines({"<Entry>", "<Param Name=\"Artist\" Value=\"X\"/>", kRef, "</Entry>"}));
  EXPECT_EQ(Registered(),
            Lines({"C:\\Music\\a.mp3 | GET_SHELL_FOLDER,5,Music PlayLists,C:\\My Documents\\Norvo "
                   "Media\\Music\\X\\ | Music PlayLists"}));
}

struct AsxTypeRow {
  const char16_t* path;
  std::int32_t playlistType;
  std::int32_t entryType;
};

TEST_F(AsxReaderTest, TheTypeOfCollectionAndEntriesComesFromTheFileName) {
  constexpr AsxTypeRow kRows[] = {
      {u"C:\\Music\\Mix.asx", 1, 1}, {u"C:\\Music\\Mix.asx", 2, 1}, {u"C:\\Music\\MIX.ASX", 2, 1},
      {u"C:\\Music\\Mix.m3u", 1, 2}, {u"C:\\Music\\Mix.M3U", 2, 2}, {u"C:\\Music\\a.m3u.asx", 2, 1},
      {u"C:\\Music\\Mix.pls", 1, 0}, {u"C:\\Music\\asx", 1, 0},
  };
  for (const AsxTypeRow& row : kRows) {
    EXPECT_TRUE(ReadText(row.path, row.playlistType, TextOf({"<Entry>", kRef, "</Entry>"})));
    EXPECT_EQ(CollectionType(), row.entryType) << Utf8(row.path);
    EXPECT_EQ(Fields(u"Entry_EntryType"), Lines({std::to_string(row.entryType)})) << Utf8(row.path);
  }
}

TEST_F(AsxReaderTest, AnM3uFileWithoutAsxElementsYieldsNoEntriesAndIsRead) {
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", 2, "#EXTM3U\r\nC:\\Music\\a.mp3\r\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(AsxReaderTest, AFileThatCannotBeOpenedFailsWithBothLines) {
  platform->AddFile(u"C:\\Music\\Mix.m3u", "<Asx>");
  platform->Files().Deny(u"C:\\Music\\Mix.m3u");
  playlist = NewPlayList(2);
  EXPECT_FALSE(Read(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(LogLines(), Lines({kNotOpened, kM3uFailed}));
}

TEST_F(AsxReaderTest, AnEmptyFileFails) {
  for (const std::string& text : {std::string(), std::string("\xEF\xBB\xBF"),
                                  std::string("\xFF\xFE"), std::string("\xFE\xFF")}) {
    log.clear();
    EXPECT_FALSE(ReadText(u"C:\\Music\\Mix.asx", 1, text));
    EXPECT_EQ(LogLines(), Lines({kAsxFailed})) << "bytes: " << text.size();
  }
}

TEST_F(AsxReaderTest, LinesEndAtPairsOnly) {
  // Joined by line feeds alone the file is one line; its first match is the start of the entry.
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.asx", 1, "<Entry>\n" + std::string(kRef) + "\n</Entry>\n"));
  EXPECT_EQ(Kept(), 0);
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.asx", 1,
                       "\n<Entry>\n\r\n\r" + std::string(kRef) + "\n\r\n\n</Entry>\n"));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, TheLastLineNeedsNoLineEnd) {
  EXPECT_TRUE(
      ReadText(u"C:\\Music\\Mix.asx", 1, "<Entry>\r\n" + std::string(kRef) + "\r\n</Entry>"));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, ThirtyTwoThousandSevenHundredAndSixtySevenLinesAreTheMost) {
  Lines lines = {"<Entry>", kRef, "</Entry>"};
  lines.resize(32764);
  for (const char* const line : {"<Entry>", kRef, "</Entry>"}) lines.emplace_back(line);
  ASSERT_EQ(lines.size(), 32767u);
  const std::string most = TextOf(lines);
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.asx", 1, most));
  EXPECT_EQ(Kept(), 2);
  EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.asx", 1, most.substr(0, most.size() - 2)));
  EXPECT_EQ(Kept(), 2);
}

TEST_F(AsxReaderTest, WithOneLineMoreTheReadFailsBehindThatLine) {
  Lines lines(32764);
  for (const char* const line : {"<Entry>", kRef, "</Entry>", "<Title>Last</Title>"}) {
    lines.emplace_back(line);
  }
  ASSERT_EQ(lines.size(), 32768u);
  const std::string tooLong = TextOf(lines);
  for (const std::string& text :
       {tooLong, tooLong.substr(0, tooLong.size() - 2), tooLong + "<Title>Late</Title>"}) {
    log.clear();
    EXPECT_FALSE(ReadText(u"C:\\Music\\Mix.asx", 1, text));
    EXPECT_EQ(Kept(), 1);
    EXPECT_EQ(Property(u"ASX_Title"), "Last");
    EXPECT_EQ(LogLines(), Lines({kAsxFailed}));
  }
}

TEST_F(AsxReaderTest, AnEntryThatEndsInTheLastLineThatIsReadIsAdded) {
  Lines lines(32765);
  for (const char* const line : {"<Entry>", kRef, "</Entry>"}) lines.emplace_back(line);
  ASSERT_EQ(lines.size(), 32768u);
  EXPECT_FALSE(ReadText(u"C:\\Music\\Mix.asx", 1, TextOf(lines)));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, AHugeLineIsJustALine) {
  const std::string huge(3'000'000, '<');
  EXPECT_TRUE(ReadLines({huge, "<Entry>", "<Title>" + huge + "</Title>", kRef, "</Entry>"}));
  EXPECT_EQ(Kept(), 1);
}

TEST_F(AsxReaderTest, NulsCutTheReferenceAndNothingElseOfTheFile) {
  const std::string nul(1, '\0');
  ASSERT_TRUE(ReadLines(
      {nul, "<Entry>" + nul, "<Ref Href=\" C:\\Music\\a.mp3" + nul + "x\"/>", "</Entry>"}));
  EXPECT_EQ(Fields(u"HREF"), Lines({"C:\\Music\\a.mp3"}));
}

TEST_F(AsxReaderTest, TagsCompleteAnEntryWithoutReplacingWhatIsAsLong) {
  platform->AddFile(u"C:\\Music\\tagged.mp3",
                    MediaWithOldTag("Tag song", "Tag artist", "Tag album"));
  ASSERT_TRUE(ReadLines({"<Entry>", "<Param Name=\"Artist\" Value=\"An artist of the list\"/>",
                         "<Title>Short</Title>", "<Ref Href=\"tagged.mp3\"/>", "</Entry>"}));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "An artist of the list");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "Tag song");
  EXPECT_EQ(Field(1, u"ASX_SongName"), "Short");
  EXPECT_EQ(Field(1, u"ASX_Album"), "Tag album");
  EXPECT_EQ(Field(1, u"Entry_Genre"), "Rock");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "An artist of the list - Tag song");
}

TEST_F(AsxReaderTest, AClockTextIsNoNumberSoATagReplacesTheDuration) {
  platform->AddFile(u"C:\\Music\\tagged.mp3", MediaWithFrames({{"TPE1", "Someone"}}));
  ASSERT_TRUE(ReadLines(
      {"<Entry>", "<Duration value=\"00:03:35.000\"/>", "<Ref Href=\"tagged.mp3\"/>", "</Entry>"}));
  EXPECT_EQ(Field(1, u"Entry_Duration"), "0");
  EXPECT_EQ(Field(1, u"Entry_TrackNumber"), "0");
}

TEST_F(AsxReaderTest, AFileNameGivesNoDetailsToAnEntry) {
  platform->AddFile(u"C:\\Music\\Artist - Song.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadLines({"<Entry>", "<Ref Href=\"C:\\Music\\Artist - Song.mp3\"/>", "</Entry>"}));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "");
}

}  // namespace
}  // namespace norvo
