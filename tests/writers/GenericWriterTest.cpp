#include "writers/GenericWriter.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class GenericWriterTest : public LibraryTest {
 protected:
  GenericWriterTest() { platform->ConfigureProduct(); }

  /// An entry of the class whose type is set, added to the playlist.
  ObjectRef Add(StringView className, std::int32_t type, Values values = {}) {
    ObjectRef entry = component.Create(className);
    entry->Let(u"Entry_EntryType", type);
    SetAll(*entry, values);
    record.entries->SetCollectionType(type);
    record.entries->Add(entry);
    return entry;
  }

  /// A playlist of the type and name with one entry of few fields.
  void MakeSmall(std::int32_t type, StringView name) {
    record.type = type;
    record.name = name;
    Add(type == 1 || type == 2 ? u"AsxEntry" : u"M3UEntry", type,
        {{u"Entry_URLType", std::int32_t{9}}, {u"Entry_SourceURL", String(u"http://x")}});
  }

  bool Write(StringView fileName = u"given.m3u") {
    return WriteGeneric(component, record, fileName);
  }
  const std::string& Written(StringView name) {
    return platform->Bytes(String(kDataArea) + String(name));
  }

  PlaylistRecord record;
};

TEST_F(GenericWriterTest, APlaylistOfPlainEntriesIsWrittenWhole) {
  platform->AddFile(u"C:\\Music\\song one.mp3", std::string(4321, 'x'));
  record.type = 3;
  record.name = u"Road Trip";
  record.originalFileName = u"Road Trip.m3u";
  record.creationTime = u"5/14/2003 10:12:00 AM";
  record.asxAuthor = u"not written";
  Add(u"M3UEntry", 3,
      {{u"Entry_ArtistName", String(u"Some Artist")},
       {u"Entry_AlbumName", String(u"Some Album")},
       {u"Entry_CreationDate", String(u"2001")},
       {u"Entry_Duration", String(u"215")},
       {u"Entry_Genre", String(u"Rock")},
       {u"HasExtendedInfo", true},
       {u"Entry_SongName", String(u"Song One")},
       {u"Entry_SongTitle", String(u"Some Artist - Song One")},
       {u"Entry_TrackNumber", String(u"7")},
       {u"Entry_PlayListName", String(u"Road Trip.m3u")},
       {u"Entry_NativeFormat", std::int32_t{5}},
       {u"Entry_SourceURL", String(u"C:\\Music\\song one.mp3")}});
  Add(u"M3UEntry", 3,
      {{u"Entry_URLType", std::int32_t{9}}, {u"Entry_SourceURL", String(u"http://radio/x")}});
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Road Trip.ini"),
            "[Global Properties]\r\n"
            "PavaneVersion=1.6\r\n"
            "PlaylistName=Road Trip\r\n"
            "PlaylistType=3\r\n"
            "OriginalFileName=Road Trip.m3u\r\n"
            "CreationTime=5/14/2003 10:12:00 AM\r\n"
            "TotalSongs=2\r\n"
            "\r\n"
            "[Entry 1 Properties]\r\n"
            "Artist=Some Artist\r\n"
            "Album=Some Album\r\n"
            "CreationDate=2001\r\n"
            "Duration=215\r\n"
            "FileName=song one.mp3\r\n"
            "FileSize=4321\r\n"
            "Genre=Rock\r\n"
            "HasExtendedInfo=True\r\n"
            "SongName=Song One\r\n"
            "SongTitle=Some Artist - Song One\r\n"
            "SourceURL=C:\\Music\\song one.mp3\r\n"
            "TrackNumber=7\r\n"
            "URLType=0\r\n"
            "\r\n"
            "[Entry 2 Properties]\r\n"
            "FileSize=0\r\n"
            "HasExtendedInfo=False\r\n"
            "SourceURL=http://radio/x\r\n"
            "URLType=9\r\n"
            "\r\n");
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericWriterTest, APlaylistOfAsxEntriesIsWrittenWhole) {
  platform->AddFile(u"C:\\Music\\a.mp3", "12345");
  record.type = 1;
  record.name = u"Mix.asx";
  record.originalFileName = u"Mix.asx";
  record.creationTime = u"now";
  record.asxAuthor = u"author";
  record.asxArtist = u"artist";
  record.asxAlbum = u"album";
  record.asxAllowShuffle = u"yes";
  record.asxTitle = u"title";
  record.asxPlayListAttribute = u"attribute";
  record.asxVersion = u"3.0";
  Add(u"AsxEntry", 1,
      {{u"Abstract", String(u"abstract")},
       {u"ASX_Album", String(u"asx album")},
       {u"ASX_Artist", String(u"asx artist")},
       {u"ASX_Author", String(u"asx author")},
       {u"ASX_SongName", String(u"asx song")},
       {u"ASX_Title", String(u"asx title")},
       {u"BitRate", std::int32_t{128000}},
       {u"Copyright", String(u"copyright")},
       {u"DigitallySecure", true},
       {u"HREF", String(u"a.mp3")},
       {u"MediaAttribute", std::int16_t{3}},
       {u"MediaType", String(u"audio")},
       {u"PlayCount", std::int32_t{9}},
       {u"PlaylistAttribute", String(u"entry attribute")},
       {u"Entry_ArtistName", String(u"much longer artist")},
       {u"Entry_AlbumName", String(u"album")},
       {u"Entry_CreationDate", String(u"1999")},
       {u"Entry_Duration", String(u"00:03:35.000")},
       {u"Entry_PlayListName", String(u"Mix")},
       {u"Entry_Genre", String(u"Pop")},
       {u"HasExtendedInfo", true},
       {u"Entry_SongName", String(u"song")},
       {u"Entry_SongTitle", String(u"song title")},
       {u"Entry_SourceURL", String(u"C:\\Music\\a.mp3")},
       {u"Entry_TrackNumber", String(u"2")},
       {u"Entry_URLType", std::int32_t{4}}});
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini"),
            "[Global Properties]\r\n"
            "PavaneVersion=1.6\r\n"
            "PlaylistName=Mix.asx\r\n"
            "PlaylistType=1\r\n"
            "OriginalFileName=Mix.asx\r\n"
            "CreationTime=now\r\n"
            "Author=author\r\n"
            "Artist=artist\r\n"
            "Album=album\r\n"
            "AllowShuffle=yes\r\n"
            "Title=title\r\n"
            "PlayListAttribute=attribute\r\n"
            "ASX Version=3.0\r\n"
            "TotalSongs=1\r\n"
            "\r\n"
            "[Entry 1 Properties]\r\n"
            "Abstract=abstract\r\n"
            "ASX_Album=asx album\r\n"
            "ASX_Artist=much longer artist\r\n"
            "ASX_Author=asx author\r\n"
            "ASX_SongName=asx song\r\n"
            "ASX_Title=asx title\r\n"
            "ASX_BitRate=128000\r\n"
            "ASX_Copyright=copyright\r\n"
            "ASX_DigitallySecure=True\r\n"
            "ASX_HREF=a.mp3\r\n"
            "ASX_MediaAttribute=3\r\n"
            "ASX_MediaType=audio\r\n"
            "ASX_PlayCount=9\r\n"
            "ASX_PlaylistAttribute=entry attribute\r\n"
            "Artist=much longer artist\r\n"
            "Album=album\r\n"
            "CreationDate=1999\r\n"
            "Duration=00:03:35.000\r\n"
            "EntryType=1\r\n"
            "FileName=a.mp3\r\n"
            "FileSize=5\r\n"
            "Genre=Pop\r\n"
            "HasExtendedInfo=True\r\n"
            "SongName=song\r\n"
            "SongTitle=song title\r\n"
            "SourceURL=C:\\Music\\a.mp3\r\n"
            "TrackNumber=2\r\n"
            "URLType=4\r\n"
            "\r\n");
}

TEST_F(GenericWriterTest, AnEmptyAsxEntryStillHasItsNumbers) {
  record.type = 2;
  record.name = u"Mix";
  Add(u"AsxEntry", 2);
  EXPECT_TRUE(Write());
  EXPECT_EQ(
      Written(u"Mix.ini"),
      "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=Mix\r\nPlaylistType=2\r\n"
      "OriginalFileName=\r\nCreationTime=\r\nAuthor=\r\nArtist=\r\nAlbum=\r\nAllowShuffle=\r\n"
      "Title=\r\nPlayListAttribute=\r\nASX Version=\r\nTotalSongs=1\r\n\r\n"
      "[Entry 1 Properties]\r\nASX_BitRate=0\r\nASX_MediaAttribute=0\r\nASX_PlayCount=0\r\n"
      "EntryType=2\r\nFileSize=0\r\nHasExtendedInfo=False\r\nURLType=0\r\n\r\n");
  EXPECT_EQ(Utf8(log), (Lines{"Must set the SourceURL property to obtain the File name ",
                              "Must set the SourceURL property to obtain a size "}));
}

TEST_F(GenericWriterTest, AForeignEntryOfEmptyTextsHasOnlyItsUrlType) {
  record.type = 4;
  record.name = u"Mix";
  const String none;
  const auto foreign = std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{0}},
                                                              {u"Entry_ArtistName", none},
                                                              {u"Entry_AlbumName", none},
                                                              {u"Entry_CreationDate", none},
                                                              {u"Entry_Duration", none},
                                                              {u"Entry_FileName", none},
                                                              {u"Entry_FileSize", none},
                                                              {u"Entry_Genre", none},
                                                              {u"HasExtendedInfo", none},
                                                              {u"Entry_SongName", none},
                                                              {u"Entry_SongTitle", none},
                                                              {u"Entry_SourceURL", none},
                                                              {u"Entry_TrackNumber", none},
                                                              {u"Entry_URLType", none}});
  record.entries->Add(foreign);
  foreign->reads.clear();
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini"),
            "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=Mix\r\nPlaylistType=4\r\n"
            "OriginalFileName=\r\nCreationTime=\r\nTotalSongs=1\r\n\r\n"
            "[Entry 1 Properties]\r\nURLType=\r\n\r\n");
  EXPECT_EQ(
      Utf8(foreign->reads),
      (Lines{"Entry_ArtistName", "Entry_AlbumName", "Entry_CreationDate", "Entry_Duration",
             "Entry_FileName", "Entry_FileSize", "Entry_Genre", "HasExtendedInfo", "Entry_SongName",
             "Entry_SongTitle", "Entry_SourceURL", "Entry_TrackNumber", "Entry_URLType"}));
}

TEST_F(GenericWriterTest, ThePlaylistsTypeDecidesOnTheGlobalKeysAndTheCollectionsOnTheEntryKeys) {
  for (std::int32_t type = 0; type <= 7; ++type) {
    for (const std::int32_t collection : {0, 1, 2, 3, 4, 5, 6, 7}) {
      SCOPED_TRACE(std::to_string(type) + " " + std::to_string(collection));
      record = PlaylistRecord();
      record.type = type;
      record.name = u"Mix";
      Add(u"AsxEntry", collection, {{u"Entry_SourceURL", String(u"http://x")}});
      EXPECT_TRUE(Write());
      const std::string& text = Written(u"Mix.ini");
      const bool asxGlobals = type == 1 || type == 2;
      const bool asxEntries = collection == 1 || collection == 2;
      EXPECT_EQ(text.find("\r\nASX Version=") != std::string::npos, asxGlobals);
      EXPECT_EQ(text.find("\r\nAuthor=") != std::string::npos, asxGlobals);
      EXPECT_EQ(text.find("\r\nEntryType=") != std::string::npos, asxEntries);
      EXPECT_EQ(text.find("\r\nASX_BitRate=") != std::string::npos, asxEntries);
      EXPECT_NE(text.find("\r\nPlaylistType=" + std::to_string(type) + "\r\n"), std::string::npos);
    }
  }
}

TEST_F(GenericWriterTest, SectionsAreNumberedFromOneWithoutGaps) {
  record.type = 6;
  record.name = u"Mix";
  for (int i = 0; i < 12; ++i) Add(u"M3UEntry", 6, {{u"Entry_TrackNumber", String(u"99")}});
  EXPECT_TRUE(Write());
  const std::string& text = Written(u"Mix.ini");
  std::size_t at = 0;
  for (int i = 1; i <= 12; ++i) {
    at = text.find("\r\n\r\n[Entry " + std::to_string(i) + " Properties]\r\n", at);
    ASSERT_NE(at, std::string::npos) << i;
  }
  EXPECT_EQ(text.find("[Entry 0 "), std::string::npos);
  EXPECT_EQ(text.find("[Entry 13 "), std::string::npos);
  EXPECT_NE(text.find("\r\nTotalSongs=12\r\n\r\n[Entry 1 "), std::string::npos);
}

TEST_F(GenericWriterTest, AComposedTitleIsThereFromTheSecondWritingOn) {
  MakeSmall(3, u"Mix");
  SetAll(*record.entries->Item(1),
         {{u"Entry_ArtistName", String(u"A")}, {u"Entry_SongName", String(u"S")}});
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini").find("SongTitle"), std::string::npos);
  EXPECT_TRUE(Write());
  EXPECT_NE(Written(u"Mix.ini").find("\r\nSongTitle=A - S\r\n"), std::string::npos);
}

TEST_F(GenericWriterTest, AnotherWritingGivesTheSameBytes) {
  MakeSmall(3, u"Mix");
  EXPECT_TRUE(Write());
  const std::string first = Written(u"Mix.ini");
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini"), first);
}

TEST_F(GenericWriterTest, AnOlderAndLongerFileIsReplacedWhole) {
  MakeSmall(3, u"Mix");
  Add(u"M3UEntry", 3, {{u"Entry_Genre", String(u"Rock")}});
  EXPECT_TRUE(Write());
  EXPECT_NE(Written(u"Mix.ini").find("[Entry 2 Properties]"), std::string::npos);
  record.entries = std::make_shared<Entries>();
  MakeSmall(3, u"Mix");
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini"),
            "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=Mix\r\nPlaylistType=3\r\n"
            "OriginalFileName=\r\nCreationTime=\r\nTotalSongs=1\r\n\r\n"
            "[Entry 1 Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\nSourceURL=http://x\r\n"
            "URLType=9\r\n\r\n");
}

TEST_F(GenericWriterTest, AFileThatIsNoSettingsFileIsReplacedUnread) {
  platform->AddFile(String(kDataArea) + u"Mix.ini", std::string(300, '\xFE'));
  MakeSmall(3, u"Mix");
  EXPECT_TRUE(Write());
  EXPECT_EQ(Written(u"Mix.ini").find('\xFE'), std::string::npos);
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 0u);
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 1u);
}

TEST_F(GenericWriterTest, ThePlaylistItselfIsNotChanged) {
  MakeSmall(3, u"Mix");
  record.originalFileName = u"o";
  record.totalSongsStore = std::int32_t{9};
  EXPECT_TRUE(Write(u"other.m3u"));
  EXPECT_TEXT(record.name, u"Mix");
  EXPECT_TEXT(record.originalFileName, u"o");
  EXPECT_EQ(record.totalSongsStore, Variant(std::int32_t{9}));
  EXPECT_NE(Written(u"Mix.ini").find("\r\nTotalSongs=1\r\n"), std::string::npos);
}

TEST_F(GenericWriterTest, TheNamedMembersWriteTheSameFile) {
  const ObjectRef playlist = component.Create(u"PlayList");
  SetAll(*playlist, {{u"PlayListType", std::int32_t{3}},
                     {u"PlayListName", String(u"Road Trip.m3u")},
                     {u"OriginalFileName", String(u"Road Trip.m3u")},
                     {u"CreationTime", Date{37755.425}}});
  const ObjectRef entries = ToObject(playlist->Get(u"PlayListEntries"));
  entries->Let(u"CollectionType", std::int32_t{3});
  const ObjectRef entry = component.Create(u"M3UEntry");
  SetAll(*entry,
         {{u"Entry_EntryType", std::int32_t{3}}, {u"Entry_SourceURL", String(u"http://x")}});
  std::vector<Variant> arguments{entry};
  entries->Call(u"Add", arguments);
  arguments.assign({String(u"x.m3u")});
  EXPECT_EQ(playlist->Call(u"WriteGeneric", arguments), Variant(true));
  EXPECT_EQ(arguments[0], Variant(String(u"x.m3u")));
  EXPECT_EQ(Written(u"Road Trip.ini"),
            "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=Road Trip\r\n"
            "PlaylistType=3\r\nOriginalFileName=Road Trip.m3u\r\n"
            "CreationTime=5/14/2003 10:12:00 AM\r\nTotalSongs=1\r\n\r\n"
            "[Entry 1 Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\nSourceURL=http://x\r\n"
            "URLType=0\r\n\r\n");
}

}  // namespace
}  // namespace norvo
