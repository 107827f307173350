#include "readers/GenericReader.h"

#include "automation/Conversions.h"
#include "readers/GenericReaderFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr const char* kBadType =
    "NVERR_OPFAIL, PLAYLIST::ReadGeneric, Bad Object Type - Unable to Process Entry";

class GenericReaderTest : public GenericReaderFixture {};

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

TEST_F(GenericReaderTest, ATextThatStandsOnNoDiskReadsAsItsFileDoes) {
  platform->AddFile(u"C:\\Music\\One.mp3", UntaggedMedia());
  const std::string bytes =
      Generic({"PlaylistName=Mix", "PlaylistType=3", "OriginalFileName=Mix.m3u", "TotalSongs=2"},
              {"[Entry 1 Properties]", "SourceURL=C:\\Music\\One.mp3", "[Entry 2 Properties]",
               "SourceURL=http://a"});
  ReadBytes(bytes);
  PlaylistRecord record;
  ReadGeneric(component, record, IniDocument(FromUtf8Lossy(bytes)));
  EXPECT_TEXT(record.name, u"Mix");
  EXPECT_TEXT(record.originalFileName, u"Mix.m3u");
  EXPECT_EQ(record.type, 3);
  Lines sources;
  record.entries->ForEach([&](AutomationObject& entry, std::int32_t) {
    sources.push_back(Utf8(ToText(entry.Get(u"Entry_SourceURL"))));
  });
  EXPECT_EQ(sources, Fields(u"Entry_SourceURL"));
  EXPECT_EQ(sources, (Lines{"C:\\Music\\One.mp3", "http://a"}));
}

TEST_F(GenericReaderTest, OfATextThatStandsOnNoDiskWhatWasReadBeforeAnErrorStays) {
  PlaylistRecord record;
  ReadGeneric(component, record,
              IniDocument(u"[Global Properties]\r\nPlaylistName=Mix\r\nPlaylistType=three\r\n"));
  EXPECT_TEXT(record.name, u"Mix");
  EXPECT_EQ(record.type, 0);
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 0u);
}

}  // namespace
}  // namespace norvo
