#include "playlist/PlayList.h"

#include "model/ModelTest.h"
#include "readers/PlaylistFixture.h"
#include "services/TextStream.h"

namespace norvo {
namespace {

class PlayListTest : public PlaylistFixture {
 protected:
  PlayListTest() { platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia()); }
};

TEST_F(PlayListTest, ANewPlaylistIsEmpty) {
  playlist = component.Create(u"PlayList");
  for (const StringView name :
       {u"CreationTime", u"PlayListName", u"OriginalFileName", u"ASX_AllowShuffle", u"ASX_Artist",
        u"ASX_Album", u"ASX_Author", u"ASX_Title", u"ASX_Version", u"ASX_PlayListAttribute"}) {
    EXPECT_EQ(Property(name), "") << Utf8(name);
  }
  EXPECT_EQ(Property(u"PlayListType"), "0");
  EXPECT_EQ(Property(u"TotalSongs"), "0");
  EXPECT_EQ(Kept(), 0);
}

TEST_F(PlayListTest, MembersStandInTheOrderOfTheInterface) {
  EXPECT_EQ(InterfaceOf(*component.Create(u"PlayList")),
            (Lines{
                "method Boolean ReadPlayList, by-ref String PlayListPath",
                "method Boolean WriteGeneric, by-ref String FileName",
                "get Object PlayListEntries",
                "method Boolean WriteRawPlayList",
                "method Boolean ReadGeneric, by-ref String FileName",
                "method String GetNewPlayListPath, String FileName, by-ref Int32 PlsType",
                "get let Variant CreationTime",
                "get let Variant PlayListName",
                "get let Int32 PlayListType",
                "get let String OriginalFileName",
                "get let Variant TotalSongs",
                "get let String ASX_AllowShuffle",
                "get let String ASX_Artist",
                "get let String ASX_Album",
                "get let String ASX_Author",
                "get let String ASX_Title",
                "get let String ASX_Version",
                "get let String ASX_PlayListAttribute",
            }));
}

TEST_F(PlayListTest, PlainPropertiesKeepWhatTheyAreGiven) {
  playlist = component.Create(u"PlayList");
  for (const StringView name :
       {u"ASX_AllowShuffle", u"ASX_Artist", u"ASX_Album", u"ASX_Author", u"ASX_Title",
        u"ASX_Version", u"ASX_PlayListAttribute", u"CreationTime"}) {
    playlist->Let(name, u"value of " + String(name));
  }
  EXPECT_EQ(Property(u"ASX_Album"), "value of ASX_Album");
  EXPECT_EQ(Property(u"ASX_AllowShuffle"), "value of ASX_AllowShuffle");
  EXPECT_EQ(Property(u"ASX_Artist"), "value of ASX_Artist");
  EXPECT_EQ(Property(u"ASX_Author"), "value of ASX_Author");
  EXPECT_EQ(Property(u"ASX_Title"), "value of ASX_Title");
  EXPECT_EQ(Property(u"ASX_Version"), "value of ASX_Version");
  EXPECT_EQ(Property(u"ASX_PlayListAttribute"), "value of ASX_PlayListAttribute");
  EXPECT_EQ(Property(u"CreationTime"), "value of CreationTime");
}

TEST_F(PlayListTest, CreationTimeTurnsAnyValueIntoText) {
  playlist = component.Create(u"PlayList");
  playlist->Let(u"CreationTime", std::int32_t{5});
  const Variant value = playlist->Get(u"CreationTime");
  ASSERT_TRUE(std::holds_alternative<String>(value));
  EXPECT_TEXT(std::get<String>(value), u"5");
}

struct NameRow {
  std::int32_t type;
  StringView given;
  StringView stored;  // "old" before
};

TEST_F(PlayListTest, ANameEndsBeforeTheFirstExtensionOfItsType) {
  constexpr NameRow kRows[] = {
      {1, u"Mix.asx", u"Mix.asx"},
      {1, u"Mix.m3u", u"Mix.m3u"},
      {1, u"", u""},
      {2, u"Mix.m3u", u"Mix"},
      {2, u"Mix.asx", u"old"},
      {3, u"Party Mix.m3u", u"Party Mix"},
      {3, u"a.M3U", u"a"},
      {3, u"x.m3u.bak", u"x"},
      {3, u"a.m3u.m3u", u"a"},
      {3, u".m3u", u""},
      {3, u"Mix.pls", u"old"},
      {3, u"Mix", u"old"},
      {3, u"", u"old"},
      {4, u"Mix.pls", u"Mix"},
      {4, u"Mix.m3u", u"old"},
      {5, u"Mix.PLS", u"Mix"},
      {6, u"Mix.m3u", u"Mix"},
      {6, u"Mix.asx", u"old"},
      {0, u"Mix.m3u", u""},
      {7, u"Mix.m3u", u""},
      {-1, u"Mix", u""},
  };
  for (const NameRow& row : kRows) {
    playlist = NewPlayList(1);
    playlist->Let(u"PlayListName", String(u"old"));
    playlist->Let(u"PlayListType", row.type);
    playlist->Let(u"PlayListName", String(row.given));
    EXPECT_TEXT(ToText(playlist->Get(u"PlayListName")), row.stored)
        << "type " << row.type << ", name " << Utf8(row.given);
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlayListTest, APlaylistNameMayBeGivenAsAnyValue) {
  playlist = NewPlayList(1);
  playlist->Let(u"PlayListName", 12.5);
  EXPECT_EQ(Property(u"PlayListName"), "12.5");
}

TEST_F(PlayListTest, TheOriginalFileNameIsSetOnceExceptByAReading) {
  playlist = NewPlayList(3);
  playlist->Let(u"OriginalFileName", String(u""));
  playlist->Let(u"OriginalFileName", String(u"first"));
  playlist->Let(u"OriginalFileName", String(u"second"));
  EXPECT_EQ(Property(u"OriginalFileName"), "first");
  platform->AddFile(u"C:\\Music\\Party Mix.m3u", "a.mp3");
  EXPECT_TRUE(Read(u"C:\\Music\\Party Mix.m3u"));
  EXPECT_EQ(Property(u"OriginalFileName"), "Party Mix.m3u");
}

TEST_F(PlayListTest, TheTotalIsTheNumberOfEntriesWhateverIsSet) {
  ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", 3, "a.mp3\r\na.mp3\r\n"));
  playlist->Let(u"TotalSongs", String(u"many"));
  const Variant total = playlist->Get(u"TotalSongs");
  ASSERT_TRUE(std::holds_alternative<std::int16_t>(total));
  EXPECT_EQ(std::get<std::int16_t>(total), 2);
}

TEST_F(PlayListTest, MoreEntriesThanSixteenBitsCountOverflowTheTotal) {
  std::string text;
  for (int i = 0; i < 32768; ++i) text += "http://h\r\n";
  ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", 6, text));
  try {
    playlist->Get(u"TotalSongs");
    FAIL() << "no error";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), 6);
  }
}

TEST_F(PlayListTest, TheEntriesAreTheSameCollectionEveryTimeAndCannotBeReplaced) {
  playlist = NewPlayList(3);
  const ObjectRef entries = ToObject(playlist->Get(u"PlayListEntries"));
  platform->AddFile(u"C:\\Music\\Mix.m3u", "a.mp3");
  ASSERT_TRUE(Read(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(ToObject(playlist->Get(u"PlayListEntries")), entries);
  EXPECT_THROW(playlist->Let(u"PlayListEntries", ObjectRef()), RunTimeError);
  playlist.reset();
  EXPECT_EQ(ToInt32(entries->Get(u"Count")), 1);  // lives on with its holder
}

TEST_F(PlayListTest, AMissingFileIsNotReadAndChangesAndLogsNothing) {
  platform->AddFolder(u"C:\\Music\\Folder.m3u");
  for (const StringView path : {u"C:\\Music\\gone.m3u", u"C:\\gone\\Mix.m3u", u"X:\\Mix.m3u", u"",
                                u"C:\\Music\\Folder.m3u", u"C:\\Music\\a.mp3\\", u"C:\\Music"}) {
    playlist = NewPlayList(3);
    EXPECT_FALSE(Read(path)) << Utf8(path);
    EXPECT_EQ(Property(u"CreationTime") + Property(u"OriginalFileName") + Property(u"PlayListName"),
              "")
        << Utf8(path);
    EXPECT_EQ(CollectionType(), 0) << Utf8(path);
  }
  EXPECT_EQ(LogLines(), Lines());
}

TEST_F(PlayListTest, AFileThatIsLargerThanAnyPlaylistIsNamedAndNotRead) {
  const std::string item = "http://a.example/\r\n";
  for (const std::int32_t type : {1, 3, 6}) {
    log.clear();
    platform->AddFile(u"C:\\Music\\Mix.m3u", item + std::string(kLargestPlaylist, '\n'));
    playlist = NewPlayList(type);
    EXPECT_FALSE(Read(u"C:\\Music\\Mix.m3u"));
    EXPECT_EQ(Kept(), 0);
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(Utf8(log.front()),
              "PLAYLIST::ReadPlayList -> File larger than 40 MB: C:\\Music\\Mix.m3u");
  }
  platform->AddFile(u"C:\\Music\\Mix.m3u",
                    item + std::string(kLargestPlaylist - item.size(), '\0'));
  playlist = NewPlayList(4);
  EXPECT_TRUE(Read(u"C:\\Music\\Mix.m3u"));
}

struct FileRow {
  std::int32_t type;
  const char16_t* path;
  const char* name;
};

TEST_F(PlayListTest, AReadingSetsTimeFileNameAndName) {
  constexpr FileRow kRows[] = {
      {1, u"C:\\Music\\Mix.asx", "Mix.asx"}, {2, u"C:\\Music\\Mix.asx", ""},
      {2, u"C:\\Music\\Mix.m3u", "Mix"},     {3, u"C:\\Music\\Mix.m3u", "Mix"},
      {3, u"C:\\Music\\Mix.M3U", "Mix"},     {4, u"C:\\Music\\Mix.pls", "Mix"},
      {5, u"C:\\Music\\Mix.pls", "Mix"},     {6, u"C:\\Music\\Mix.m3u", "Mix"},
      {0, u"C:\\Music\\Mix.m3u", ""},        {7, u"C:\\Music\\Mix.m3u", ""},
      {2, u"C:\\Music\\a.m3u.asx", "a"},
  };
  for (const FileRow& row : kRows) {
    platform->AddFile(row.path, "\r\n");
    playlist = NewPlayList(row.type);
    EXPECT_TRUE(Read(row.path)) << row.type;
    EXPECT_EQ(Property(u"PlayListName"), row.name) << row.type << " " << Utf8(row.path);
    EXPECT_EQ("C:\\Music\\" + Property(u"OriginalFileName"), Utf8(row.path));
    EXPECT_EQ(Property(u"CreationTime"), "5/14/2003 10:12:00 AM");
  }
}

TEST_F(PlayListTest, TheFileNameIsSpelledAsTheDiskSpellsIt) {
  platform->AddFile(u"C:\\Music\\Party Mix.m3u", "a.mp3\r\n");
  playlist = NewPlayList(3);
  ASSERT_TRUE(Read(u"c:/music/PARTY MIX.M3U"));
  EXPECT_EQ(Property(u"OriginalFileName"), "Party Mix.m3u");
  EXPECT_EQ(Property(u"PlayListName"), "Party Mix");
  EXPECT_EQ(Kept(), 1);
}

TEST_F(PlayListTest, APlaylistInADrivesRootResolvesItsItemsThere) {
  platform->AddFile(u"C:\\root.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadText(u"C:\\Mix.m3u", 3, "root.mp3\r\n"));
  EXPECT_EQ(Fields(u"Entry_SourceURL"), Lines({"C:\\root.mp3"}));
}

TEST_F(PlayListTest, TheArgumentIsNotChanged) {
  platform->AddFile(u"C:\\Music\\Mix.m3u", "a.mp3\r\n");
  playlist = NewPlayList(3);
  Variant path = String(u"c:\\MUSIC\\mix.m3u");
  playlist->Call(u"ReadPlayList", Arguments(&path, 1));
  EXPECT_TEXT(std::get<String>(path), u"c:\\MUSIC\\mix.m3u");
}

TEST_F(PlayListTest, AnUnknownTypeReadsNothingAndSucceeds) {
  for (const std::int32_t type : {0, 7, -1, 2147483647}) {
    EXPECT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", type, "a.mp3\r\n")) << type;
    EXPECT_EQ(Kept(), 0) << type;
    EXPECT_EQ(Property(u"PlayListName"), "") << type;
  }
  EXPECT_EQ(LogLines(), Lines());
}

struct FailureRow {
  std::int32_t type;
  const char* text;
  const char* line;
};

TEST_F(PlayListTest, AFailedReadingLogsTheLineOfItsType) {
  constexpr FailureRow kRows[] = {
      {1, "", "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_ASX returned False"},
      {2, "", "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadASX for Type WMP_M3U returned False"},
      {3, "", "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U returned False"},
      {4, "[playlist]\r\nNumberOfEntries=x",
       "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type WINAMP_PLS returned False"},
      {5, "[playlist]\r\nNumberOfEntries=x",
       "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadPLS for type SONIQUE_PLS returned False"},
  };
  for (const FailureRow& row : kRows) {
    log.clear();
    EXPECT_FALSE(ReadText(u"C:\\Music\\Mix.m3u", row.type, row.text)) << row.type;
    EXPECT_EQ(LogLines(), Lines({row.line})) << row.type;
    EXPECT_EQ(Property(u"OriginalFileName"), "Mix.m3u");
    EXPECT_EQ(Property(u"CreationTime"), "5/14/2003 10:12:00 AM");
  }
}

TEST_F(PlayListTest, ReadingTwiceYieldsEveryEntryTwice) {
  ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", 3, "a.mp3\r\nhttp://h\r\n"));
  ASSERT_TRUE(Read(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(Fields(u"Entry_SourceURL"),
            Lines({"C:\\Music\\a.mp3", "http://h", "C:\\Music\\a.mp3", "http://h"}));
}

TEST_F(PlayListTest, AFailureBetweenFindingAndOpeningReachesTheCaller) {
  platform->AddFile(u"C:\\Music\\Mix.m3u", "a.mp3\r\n");
  playlist = NewPlayList(3);
  platform->FailOn(u"LocalDate", 1, 53);
  try {
    Read(u"C:\\Music\\Mix.m3u");
    FAIL() << "no error";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), 53);
  }
}

TEST_F(PlayListTest, AnIndexPastTheEndGivesNoObjectAndOneBelowOneIsAnError) {
  ASSERT_TRUE(ReadText(u"C:\\Music\\Mix.m3u", 3, "a.mp3\r\n"));
  EXPECT_EQ(EntryAt(2), nullptr);
  EXPECT_THROW(EntryAt(0), RunTimeError);
}

}  // namespace
}  // namespace norvo
