#include "writers/NativeWriter.h"

#include "writers/NativeWriterFixture.h"

namespace norvo {
namespace {

using namespace std::string_literals;

/// Whole files, some of them of a song that moves and an address that stays.
class NativeWriterTest : public NativeWriterFixture {
 protected:
  static constexpr const char* kPath =
      "C:\\My Documents\\Norvo Media\\Music\\artist\\album\\One.mp3";

  /// Adds the song, with its own values behind those of every syntax, and the address.
  void AddSongAndStream(Values own) {
    platform->AddFile(u"C:\\Music\\One.mp3", "12345");
    const ObjectRef song = Add({{u"Entry_SourceURL", String(u"C:\\Music\\One.mp3")},
                                {u"HasExtendedInfo", true},
                                {u"Entry_SongName", String(u"song")},
                                {u"Entry_SongTitle", String(u"song title")},
                                {u"Entry_Genre", String(u"Rock")},
                                {u"Entry_TrackNumber", String(u"7")},
                                {u"Entry_CreationDate", String(u"1999")}});
    SetAll(*song, own);
    Add({kStreamType, kStream});
  }

  static std::string AsxParam(const std::string& name, const std::string& value) {
    return "<Param Name = \"" + name + "\" Value = \"" + value + "\" />\r\n\r\n";
  }
  /// An entry of an ASX file, whose address stands in it twice.
  static std::string AsxEntry(const std::string& address, const std::string& beforeSource,
                              const std::string& behindSource) {
    return "<Entry>\r\n<Ref href = \"" + address + "\"/>\r\n\r\n" + beforeSource +
           AsxParam("SourceURL", address) + behindSource + "</Entry>\r\n\r\n";
  }

  void ExpectPlainFiles(const String& name, const std::string& seconds) {
    const std::string path = kPath;
    EXPECT_EQ(
        Text(u"WinAmp\\" + name + u".m3u"),
        "#EXTM3U\r\n#EXTINF:" + seconds + ",artist - song\r\n" + path + "\r\nhttp://host/a\r\n");
    EXPECT_EQ(Text(u"MusicMatch Jukebox\\" + name + u".m3u"), path + "\0\r\nhttp://host/a\0\r\n"s);
    EXPECT_EQ(Text(u"Sonique\\" + name + u".pls"),
              "[playlist]\r\nLength1=" + seconds + "\r\nTitle1=artist - song\r\nFile1=" + path +
                  "\r\nFile2=http://host/a\r\nNumberOfEntries=2\r\nVersion=2\r\n");
  }
};

TEST_F(NativeWriterTest, AnAsxPlaylistIsWrittenWholeInEachSyntax) {
  NewPlayList(1);
  SetAll(*playlist, {{u"ASX_Version", String(u"2.5")},
                     {u"ASX_Author", String(u"list author")},
                     {u"ASX_Title", String(u"list title")},
                     {u"PlayListName", String(u"Mix.asx")},
                     {u"ASX_AllowShuffle", String(u"no")},
                     {u"ASX_Artist", String(u"list artist")},
                     {u"ASX_Album", String(u"list album")},
                     {u"CreationTime", String(u"5/14/2003 10:12:00 AM")},
                     {u"ASX_PlayListAttribute", String(u"list attribute")}});
  AddSongAndStream({{u"Entry_Duration", String(u"00:03:35.000")},
                    {u"ASX_Author", String(u"author")},
                    {u"Abstract", String(u"abstract")},
                    {u"Copyright", String(u"copyright")},
                    {u"ASX_Title", String(u"title")},
                    {u"ASX_SongName", String(u"asx song")},
                    {u"ASX_Artist", String(u"artist")},
                    {u"ASX_Album", String(u"album")},
                    {u"MediaType", String(u"audio")},
                    {u"MediaAttribute", std::int32_t{3}},
                    {u"BitRate", std::int32_t{128000}},
                    {u"DigitallySecure", String(u"secure")},
                    {u"PlayCount", std::int32_t{42}},
                    {u"PlaylistAttribute", String(u"not written")},
                    {u"HREF", String(u"not written")}});
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Written(), kFourFiles);
  const std::string song =
      "<Duration Value = \"00:03:35.000\" />\r\n\r\n"
      "<Author > author</Author>\r\n\r\n"
      "<Abstract > abstract</Abstract>\r\n\r\n"
      "<CopyRight > copyright</CopyRight>\r\n\r\n"
      "<Title> title</Title>\r\n\r\n" +
      AsxParam("Name", "asx song") + AsxParam("Artist", "artist") + AsxParam("Album", "album") +
      AsxParam("Genre", "Rock") + AsxParam("MediaType", "audio") + AsxParam("MediaAttribute", "3") +
      AsxParam("OriginalIndex", "7") + AsxParam("BitRate", "128000") +
      AsxParam("DigitallySecure", "secure") + AsxParam("PlayCount", "42");
  const std::string stream =
      AsxParam("MediaAttribute", "0") + AsxParam("BitRate", "0") + AsxParam("PlayCount", "0");
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"2.5\" >\r\n"
            "<Author > list author</Author>\r\n\r\n"
            "<Title> list title</Title>\r\n\r\n" +
                AsxParam("Name", "Mix.asx") + AsxParam("AllowShuffle", "no") +
                AsxParam("Artist", "list artist") + AsxParam("Album", "list album") +
                AsxParam("CreationTime", "5/14/2003 10:12:00 AM") +
                AsxParam("PlayListAttribute", "list attribute") +
                AsxEntry(kPath, song, AsxParam("CreationDate", "1999")) +
                AsxEntry("http://host/a", stream, "") + "</ASX>\r\n");
  ExpectPlainFiles(u"Mix", "215");
  EXPECT_TRUE(log.empty());
}

constexpr StringView kPlainTypes[] = {u"3", u"4", u"5", u"6"};

TEST_F(NativeWriterTest, APlainPlaylistIsWrittenWholeInEachSyntax) {
  for (const StringView type : kPlainTypes) {
    NewPlayList(Int32FromText(type), u"Mix" + String(type) + u".m3u");
    playlist->Let(u"PlayListName", u"Mix" + String(type) + u".m3u.pls");
    AddSongAndStream({{u"Entry_Duration", String(u"215")},
                      {u"Entry_ArtistName", String(u"artist")},
                      {u"Entry_AlbumName", String(u"album")}});
    EXPECT_EQ(Write(), Variant(false));
    const String name = u"Mix" + String(type);
    const std::string shown =
        type == u"3" || type == u"6" ? "Mix" + Utf8(type) : "Mix" + Utf8(type) + ".m3u";
    const std::string song =
        "<Duration Value = \"00:04:35.000\" />\r\n\r\n"
        "<Title> song title</Title>\r\n\r\n" +
        AsxParam("Name", "song") + AsxParam("Artist", "artist") + AsxParam("Album", "album") +
        AsxParam("Genre", "Rock") + AsxParam("OriginalIndex", "7");
    EXPECT_EQ(Text(u"Windows Media Player\\" + name + u".asx"),
              "<ASX Version = \"3.0\" >\r\n" + AsxParam("Name", shown) +
                  AsxParam("AllowShuffle", "yes") +
                  AsxEntry(kPath, song, AsxParam("CreationDate", "1999")) +
                  AsxEntry("http://host/a", "", "") + "</ASX>\r\n");
    // The plain duration has never been clock text and therefore counts as 0.
    ExpectPlainFiles(name, "0");
  }
  EXPECT_EQ(Written().size(), 16u);
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeWriterTest, EveryTypeMakesTheSameFourFiles) {
  for (std::int32_t type = 1; type <= 6; ++type) {
    platform = std::make_shared<MemoryPlatform>();
    platform->ConfigureProduct();
    library = OpenLibrary(platform);
    playlist = library->Create(u"PlayList");
    playlist->Let(u"PlayListType", type);
    playlist->Let(u"OriginalFileName", String(u"Mix.x"));
    EXPECT_EQ(Write(), Variant(false));
    EXPECT_EQ(Written(), kFourFiles) << type;
  }
}

TEST_F(NativeWriterTest, APlaylistOfAnUnknownTypeMakesNothing) {
  for (const std::int32_t type : {0, 7, -1, 2147483647}) {
    NewPlayList(type);
    EXPECT_EQ(Write(), Variant(false)) << type;
  }
  EXPECT_EQ(Written(), Lines());
  EXPECT_FALSE(platform->HasFolder(kRoot));
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeWriterTest, APlaylistWithoutEntriesMakesFilesWithoutEntries) {
  NewPlayList(2);
  Write();
  EXPECT_EQ(Text(kAsxFile), "<ASX Version = \"\" >\r\n</ASX>\r\n");
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "");
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nNumberOfEntries=0\r\nVersion=2\r\n");
}

TEST_F(NativeWriterTest, AScriptsObjectIsAskedForItsValuesInTheOrderOfTheLines) {
  for (const bool extended : {false, true}) {
    SCOPED_TRACE(extended);
    const String text = u"1";
    const auto entry = std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{3}},
                                                              {u"Entry_DestinationPath", text},
                                                              {u"Entry_Duration", text},
                                                              {u"HasExtendedInfo", extended},
                                                              {u"Entry_SongTitle", text},
                                                              {u"Entry_SongName", text},
                                                              {u"Entry_ArtistName", text},
                                                              {u"Entry_AlbumName", text},
                                                              {u"Entry_Genre", text},
                                                              {u"Entry_TrackNumber", text},
                                                              {u"Entry_CreationDate", text}});
    NewPlayList(3);
    Add(entry);
    entry->reads.clear();
    Write();
    Lines expected = {"Entry_DestinationPath", "Entry_Duration",    "Entry_SongTitle",
                      "Entry_SongName",        "Entry_ArtistName",  "Entry_AlbumName",
                      "Entry_Genre",           "Entry_TrackNumber", "Entry_CreationDate"};
    const Lines title = {"Entry_ArtistName", "Entry_SongName"};
    for (const bool bareFileBehind : {true, false}) {
      for (const char* const name : {"Entry_Duration", "HasExtendedInfo"}) expected.push_back(name);
      if (extended) expected.insert(expected.end(), title.begin(), title.end());
      expected.insert(expected.end(), bareFileBehind ? 2 : 1, "Entry_DestinationPath");
    }
    EXPECT_EQ(Utf8(entry->reads), expected);
  }
}

TEST_F(NativeWriterTest, AnEntryWithoutAPathStillHasItsLines) {
  NewPlayList(3);
  Add({{u"Entry_URLType", std::int32_t{4}}, {u"Entry_SourceURL", String(u"C:\\Music\\gone.mp3")}});
  Write();
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"3.0\" >\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n"
            "<Entry>\r\n<Ref href = \"\"/>\r\n\r\n"
            "<Param Name = \"SourceURL\" Value = \"\" />\r\n\r\n</Entry>\r\n\r\n</ASX>\r\n");
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "\0\r\n"s);
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nFile1=\r\nNumberOfEntries=1\r\nVersion=2\r\n");
  EXPECT_EQ(Utf8(log), Lines(4, "The FileName Property has not been set"));
}

TEST_F(NativeWriterTest, TextsGoInAsTheyAreInTheCodePage) {
  NewPlayList(1);
  playlist->Let(u"PlayListName", String(u"\"<&>\"\r\n"));
  Add({kStreamType,
       kStream,
       {u"HasExtendedInfo", true},
       {u"ASX_Title", String(u"Größe €")},
       {u"Entry_ArtistName", String(u"Музыка")},
       {u"Entry_SongName", String(u"a\0b\xD83D\xDE00", 5)}});
  Write();
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"\" >\r\n"
            "<Param Name = \"Name\" Value = \"\"<&>\"\r\n\" />\r\n\r\n"
            "<Entry>\r\n<Ref href = \"http://host/a\"/>\r\n\r\n"
            "<Title> Gr\xF6\xDF"
            "e \x80</Title>\r\n\r\n"
            "<Param Name = \"Artist\" Value = \"??????\" />\r\n\r\n"
            "<Param Name = \"MediaAttribute\" Value = \"0\" />\r\n\r\n"
            "<Param Name = \"BitRate\" Value = \"0\" />\r\n\r\n"
            "<Param Name = \"PlayCount\" Value = \"0\" />\r\n\r\n"
            "<Param Name = \"SourceURL\" Value = \"http://host/a\" />\r\n\r\n"
            "</Entry>\r\n\r\n</ASX>\r\n");
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n#EXTINF:0,?????? - a\r\nhttp://host/a\r\n");
}

TEST_F(NativeWriterTest, FilesThatAreThereAreNeverTouched) {
  const Lines first = kFourFiles;
  for (const std::string& file : first) {
    platform->AddFile(String(kRoot) + String(file.begin(), file.end()), "mine");
  }
  NewPlayList(3);
  Write();
  for (const std::string& file : first) EXPECT_EQ(Text(String(file.begin(), file.end())), "mine");
  EXPECT_EQ(Text(u"WinAmp\\Mix1.m3u"), "#EXTM3U\r\n");
  Write();
  EXPECT_EQ(Text(u"Sonique\\Mix12.pls"), "[playlist]\r\nNumberOfEntries=0\r\nVersion=2\r\n");
  EXPECT_EQ(Written().size(), 12u);
}

TEST_F(NativeWriterTest, WithoutAnOriginalNameOrADestinationNothingIsWrittenAndNothingLogged) {
  for (const StringView name : {u"", u"Mix", u"C:\\Music\\Mix"}) {
    NewPlayList(3, name);
    EXPECT_EQ(Write(), Variant(false)) << Utf8(name);
  }
  EXPECT_FALSE(platform->HasFolder(kRoot));
  platform = std::make_shared<MemoryPlatform>();
  library = OpenLibrary(platform);
  playlist = library->Create(u"PlayList");
  playlist->Let(u"PlayListType", std::int32_t{3});
  playlist->Let(u"OriginalFileName", String(u"Mix.m3u"));
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Utf8(platform->Files().AllFiles()), Lines());
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeWriterTest, AnObjectOfAHostIsWrittenByItsProperties) {
  NewPlayList(4);
  Add(std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{4}},
                                             {u"Entry_DestinationPath", String(u"X:\\a.mp3")},
                                             {u"HasExtendedInfo", String(u"True")},
                                             {u"Entry_Duration", String(u"0:01:00.5")},
                                             {u"Entry_ArtistName", std::int32_t{12}},
                                             {u"Entry_SongName", 2.5},
                                             {u"Entry_SongTitle", {}},
                                             {u"Entry_AlbumName", {}},
                                             {u"Entry_Genre", {}},
                                             {u"Entry_TrackNumber", {}},
                                             {u"Entry_CreationDate", {}}}));
  Write();
  EXPECT_EQ(Text(kPlsFile),
            "[playlist]\r\nLength1=60\r\nTitle1=12 - 2.5\r\nFile1=X:\\a.mp3\r\n"
            "NumberOfEntries=1\r\nVersion=2\r\n");
  EXPECT_TRUE(Text(kAsxFile).ends_with("</Entry>\r\n\r\n</ASX>\r\n"));
}

TEST_F(NativeWriterTest, AScriptsObjectIsAskedForEachLineOfAnAsxFileInItsOrder) {
  const Lines lines = {"Entry_DestinationPath",
                       "Entry_Duration",
                       "ASX_Author",
                       "Abstract",
                       "Copyright",
                       "ASX_Title",
                       "ASX_SongName",
                       "ASX_Artist",
                       "ASX_Album",
                       "Entry_Genre",
                       "MediaType",
                       "MediaAttribute",
                       "Entry_TrackNumber",
                       "BitRate",
                       "DigitallySecure",
                       "PlayCount",
                       "Entry_CreationDate"};
  const auto entry = std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{1}}});
  for (const std::string& line : lines) entry->Let(FromUtf8Lossy(line), String(u"1"));
  NewPlayList(1);
  Add(entry);
  entry->reads.clear();
  Write();
  Lines reads = Utf8(entry->reads);
  ASSERT_GE(reads.size(), lines.size());
  reads.resize(lines.size());  // those of the other files follow
  EXPECT_EQ(reads, lines);
}

TEST_F(NativeWriterTest, AnOutputFileIsOpenedForAppending) {
  std::unique_ptr<TextWriter> stream;
  platform->AddFile(u"C:\\there.txt", "old\r\n");
  EXPECT_TRUE(OpenOutFile(component, u"C:\\there.txt", stream, false));
  stream->WriteLine(u"new €");
  stream.reset();
  EXPECT_EQ(platform->Bytes(u"C:\\there.txt"), "old\r\nnew \x80\r\n");
  EXPECT_TRUE(OpenOutFile(component, u"C:\\made.txt", stream, true));
  stream.reset();
  EXPECT_EQ(platform->Bytes(u"C:\\made.txt"), "");
  const auto open = [&](StringView path, bool create) {
    return NumberRaisedBy([&] { OpenOutFile(component, path, stream, create); });
  };
  EXPECT_EQ(open(u"C:\\gone.txt", false), error::kFileNotFound);
  EXPECT_EQ(open(u"C:\\gone\\a.txt", true), error::kPathNotFound);
  EXPECT_NE(open(u"", true), 0);
}

TEST_F(NativeWriterTest, TheCostPerEntryDoesNotGrowWithTheirNumber) {
  const auto callsFor = [this](int count) {
    NewPlayList(3, u"n.x");
    const ObjectRef entry = Add({kStreamType, kStream});
    for (int i = 1; i < count; ++i) Add(entry);
    platform->Log().Clear();
    Write();
    return platform->Log().Total() - platform->Calls(u"FactsOf") - platform->Calls(u"Append");
  };
  callsFor(1);
  EXPECT_EQ(callsFor(100), callsFor(1000));
}

}  // namespace
}  // namespace norvo
