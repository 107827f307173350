#include "writers/NativeWriter.h"

#include <algorithm>

#include "model/ModelTest.h"

namespace norvo {
namespace {

using namespace std::string_literals;

constexpr StringView kRoot = u"C:\\My Documents\\Norvo Media\\PlayLists\\";
constexpr StringView kAsxFile = u"Windows Media Player\\Mix.asx";
constexpr StringView kWinampFile = u"WinAmp\\Mix.m3u";
constexpr StringView kMusicMatchFile = u"MusicMatch Jukebox\\Mix.m3u";
constexpr StringView kPlsFile = u"Sonique\\Mix.pls";

const Lines kFourFiles = {Utf8(kMusicMatchFile), Utf8(kPlsFile), Utf8(kWinampFile), Utf8(kAsxFile)};

/// Hears of the native files, and looks at each when its end is told.
class FileFollower final : public Observer {
 public:
  explicit FileFollower(const MemoryPlatform& platform) : platform_(platform) {}
  void OnNativeFile(StringView path, std::int32_t type) override {
    steps.push_back("begin " + std::to_string(type) + " " + Name(path) +
                    (platform_.HasFile(path) ? " there" : ""));
  }
  void OnNativeFileEnd(StringView path, bool whole) override {
    const std::string size =
        platform_.HasFile(path) ? std::to_string(platform_.Bytes(path).size()) : "no file";
    steps.push_back((whole ? "whole " : "torn ") + Name(path) + " " + size);
  }
  Lines steps;

 private:
  static std::string Name(StringView path) {
    return Utf8(path.starts_with(kRoot) ? path.substr(kRoot.size()) : path);
  }
  const MemoryPlatform& platform_;
};

class NativeWriterTest : public LibraryTest {
 protected:
  NativeWriterTest() { platform->ConfigureProduct(); }

  /// A new playlist in hand, with this original file name.
  void NewPlayList(std::int32_t type, StringView fileName = u"Mix.old") {
    playlist = component.Create(u"PlayList");
    playlist->Let(u"PlayListType", type);
    playlist->Let(u"OriginalFileName", String(fileName));
    Entries()->Let(u"CollectionType", type);
  }
  ObjectRef Entries() { return ToObject(playlist->Get(u"PlayListEntries")); }
  void Add(const ObjectRef& entry) {
    std::vector<Variant> arguments{entry};
    Entries()->Call(u"Add", arguments);
  }
  /// Adds an entry of the playlist's own kind.
  ObjectRef Add(Values values) {
    const auto type = ToInt32(playlist->Get(u"PlayListType"));
    const StringView kind = type <= 2                ? u"AsxEntry"
                            : type == 3 || type == 6 ? u"M3UEntry"
                                                     : u"PlsEntry";
    ObjectRef entry = component.Create(kind);
    entry->Let(u"Entry_EntryType", type);
    SetAll(*entry, values);
    Add(entry);
    return entry;
  }
  Variant Write() { return playlist->Call(u"WriteRawPlayList"); }

  /// Paths of all native files behind the destination root.
  Lines Written() {
    Lines paths;
    for (const String& path : platform->Files().AllFiles()) {
      if (path.starts_with(kRoot)) paths.push_back(Utf8(path.substr(kRoot.size())));
    }
    return paths;
  }
  std::string Text(StringView file) {
    const String path = String(kRoot) + String(file);
    return platform->HasFile(path) ? platform->Bytes(path) : "no file";
  }

  /// A name that no playlist has had before.
  std::string NextName() { return "n" + std::to_string(++names_) + "n"; }
  /// The ASX file of a new playlist of one stream with these further values.
  std::string AsxOf(std::int32_t type, Values entry, Values globals = {}) {
    const std::string name = NextName();
    NewPlayList(type, String(name.begin(), name.end()) + u".x");
    SetAll(*playlist, globals);
    const ObjectRef added =
        Add({{u"Entry_URLType", std::int32_t{9}}, {u"Entry_SourceURL", String(u"http://host/a")}});
    SetAll(*added, entry);
    Write();
    return Text(u"Windows Media Player\\" + String(name.begin(), name.end()) + u".asx");
  }

  ObjectRef playlist;

 private:
  int names_ = 0;
};

/// An address that is not relocated: its path is the address.
const std::pair<StringView, Variant> kStreamType = {u"Entry_URLType", std::int32_t{9}};
const std::pair<StringView, Variant> kStream = {u"Entry_SourceURL", String(u"http://host/a")};

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
  platform->AddFile(u"C:\\Music\\One.mp3", "12345");
  Add({{u"Entry_SourceURL", String(u"C:\\Music\\One.mp3")},
       {u"Entry_Duration", String(u"00:03:35.000")},
       {u"HasExtendedInfo", true},
       {u"ASX_Author", String(u"author")},
       {u"Abstract", String(u"abstract")},
       {u"Copyright", String(u"copyright")},
       {u"ASX_Title", String(u"title")},
       {u"ASX_SongName", String(u"asx song")},
       {u"ASX_Artist", String(u"artist")},
       {u"ASX_Album", String(u"album")},
       {u"Entry_SongName", String(u"song")},
       {u"Entry_SongTitle", String(u"song title")},
       {u"Entry_Genre", String(u"Rock")},
       {u"MediaType", String(u"audio")},
       {u"MediaAttribute", std::int32_t{3}},
       {u"Entry_TrackNumber", String(u"7")},
       {u"BitRate", std::int32_t{128000}},
       {u"DigitallySecure", String(u"secure")},
       {u"PlayCount", std::int32_t{42}},
       {u"PlaylistAttribute", String(u"not written")},
       {u"HREF", String(u"not written")},
       {u"Entry_CreationDate", String(u"1999")}});
  Add({kStreamType, kStream});
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Written(), kFourFiles);
  const std::string path = "C:\\My Documents\\Norvo Media\\Music\\artist\\album\\One.mp3";
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"2.5\" >\r\n"
            "<Author > list author</Author>\r\n\r\n"
            "<Title> list title</Title>\r\n\r\n"
            "<Param Name = \"Name\" Value = \"Mix.asx\" />\r\n\r\n"
            "<Param Name = \"AllowShuffle\" Value = \"no\" />\r\n\r\n"
            "<Param Name = \"Artist\" Value = \"list artist\" />\r\n\r\n"
            "<Param Name = \"Album\" Value = \"list album\" />\r\n\r\n"
            "<Param Name = \"CreationTime\" Value = \"5/14/2003 10:12:00 AM\" />\r\n\r\n"
            "<Param Name = \"PlayListAttribute\" Value = \"list attribute\" />\r\n\r\n"
            "<Entry>\r\n"
            "<Ref href = \"" +
                path +
                "\"/>\r\n\r\n"
                "<Duration Value = \"00:03:35.000\" />\r\n\r\n"
                "<Author > author</Author>\r\n\r\n"
                "<Abstract > abstract</Abstract>\r\n\r\n"
                "<CopyRight > copyright</CopyRight>\r\n\r\n"
                "<Title> title</Title>\r\n\r\n"
                "<Param Name = \"Name\" Value = \"asx song\" />\r\n\r\n"
                "<Param Name = \"Artist\" Value = \"artist\" />\r\n\r\n"
                "<Param Name = \"Album\" Value = \"album\" />\r\n\r\n"
                "<Param Name = \"Genre\" Value = \"Rock\" />\r\n\r\n"
                "<Param Name = \"MediaType\" Value = \"audio\" />\r\n\r\n"
                "<Param Name = \"MediaAttribute\" Value = \"3\" />\r\n\r\n"
                "<Param Name = \"OriginalIndex\" Value = \"7\" />\r\n\r\n"
                "<Param Name = \"BitRate\" Value = \"128000\" />\r\n\r\n"
                "<Param Name = \"DigitallySecure\" Value = \"secure\" />\r\n\r\n"
                "<Param Name = \"PlayCount\" Value = \"42\" />\r\n\r\n"
                "<Param Name = \"SourceURL\" Value = \"" +
                path +
                "\" />\r\n\r\n"
                "<Param Name = \"CreationDate\" Value = \"1999\" />\r\n\r\n"
                "</Entry>\r\n\r\n"
                "<Entry>\r\n"
                "<Ref href = \"http://host/a\"/>\r\n\r\n"
                "<Param Name = \"MediaAttribute\" Value = \"0\" />\r\n\r\n"
                "<Param Name = \"BitRate\" Value = \"0\" />\r\n\r\n"
                "<Param Name = \"PlayCount\" Value = \"0\" />\r\n\r\n"
                "<Param Name = \"SourceURL\" Value = \"http://host/a\" />\r\n\r\n"
                "</Entry>\r\n\r\n"
                "</ASX>\r\n");
  EXPECT_EQ(Text(kWinampFile),
            "#EXTM3U\r\n#EXTINF:215,artist - song\r\n" + path + "\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), path + "\0\r\nhttp://host/a\0\r\n"s);
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nLength1=215\r\nTitle1=artist - song\r\nFile1=" + path +
                                "\r\nFile2=http://host/a\r\nNumberOfEntries=2\r\nVersion=2\r\n");
  EXPECT_TRUE(log.empty());
}

constexpr StringView kPlainTypes[] = {u"3", u"4", u"5", u"6"};

TEST_F(NativeWriterTest, APlainPlaylistIsWrittenWholeInEachSyntax) {
  platform->AddFile(u"C:\\Music\\One.mp3", "12345");
  for (const StringView type : kPlainTypes) {
    NewPlayList(Int32FromText(type), u"Mix" + String(type) + u".m3u");
    playlist->Let(u"PlayListName", u"Mix" + String(type) + u".m3u.pls");
    Add({{u"Entry_SourceURL", String(u"C:\\Music\\One.mp3")},
         {u"Entry_Duration", String(u"215")},
         {u"HasExtendedInfo", true},
         {u"Entry_ArtistName", String(u"artist")},
         {u"Entry_AlbumName", String(u"album")},
         {u"Entry_SongName", String(u"song")},
         {u"Entry_SongTitle", String(u"song title")},
         {u"Entry_Genre", String(u"Rock")},
         {u"Entry_TrackNumber", String(u"7")},
         {u"Entry_CreationDate", String(u"1999")}});
    Add({kStreamType, kStream});
    EXPECT_EQ(Write(), Variant(false));
    const std::string path = "C:\\My Documents\\Norvo Media\\Music\\artist\\album\\One.mp3";
    const String name = u"Mix" + String(type);
    const std::string shown =
        type == u"3" || type == u"6" ? "Mix" + Utf8(type) : "Mix" + Utf8(type) + ".m3u";
    EXPECT_EQ(Text(u"Windows Media Player\\" + name + u".asx"),
              "<ASX Version = \"3.0\" >\r\n"
              "<Param Name = \"Name\" Value = \"" +
                  shown +
                  "\" />\r\n\r\n"
                  "<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n"
                  "<Entry>\r\n"
                  "<Ref href = \"" +
                  path +
                  "\"/>\r\n\r\n"
                  "<Duration Value = \"00:04:35.000\" />\r\n\r\n"
                  "<Title> song title</Title>\r\n\r\n"
                  "<Param Name = \"Name\" Value = \"song\" />\r\n\r\n"
                  "<Param Name = \"Artist\" Value = \"artist\" />\r\n\r\n"
                  "<Param Name = \"Album\" Value = \"album\" />\r\n\r\n"
                  "<Param Name = \"Genre\" Value = \"Rock\" />\r\n\r\n"
                  "<Param Name = \"OriginalIndex\" Value = \"7\" />\r\n\r\n"
                  "<Param Name = \"SourceURL\" Value = \"" +
                  path +
                  "\" />\r\n\r\n"
                  "<Param Name = \"CreationDate\" Value = \"1999\" />\r\n\r\n"
                  "</Entry>\r\n\r\n"
                  "<Entry>\r\n"
                  "<Ref href = \"http://host/a\"/>\r\n\r\n"
                  "<Param Name = \"SourceURL\" Value = \"http://host/a\" />\r\n\r\n"
                  "</Entry>\r\n\r\n"
                  "</ASX>\r\n");
    // The plain duration has never been clock text and therefore counts as 0.
    EXPECT_EQ(Text(u"WinAmp\\" + name + u".m3u"),
              "#EXTM3U\r\n#EXTINF:0,artist - song\r\n" + path + "\r\nhttp://host/a\r\n");
    EXPECT_EQ(Text(u"MusicMatch Jukebox\\" + name + u".m3u"), path + "\0\r\nhttp://host/a\0\r\n"s);
    EXPECT_EQ(Text(u"Sonique\\" + name + u".pls"),
              "[playlist]\r\nLength1=0\r\nTitle1=artist - song\r\nFile1=" + path +
                  "\r\nFile2=http://host/a\r\nNumberOfEntries=2\r\nVersion=2\r\n");
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

/// Lines of a text that another one lacks.
Lines Added(const std::string& longer, const std::string& shorter) {
  const auto split = [](const std::string& text) {
    Lines lines;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find("\r\n", at), text.size());
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  };
  Lines added;
  const Lines old = split(shorter);
  std::size_t next = 0;
  for (const std::string& line : split(longer)) {
    if (next < old.size() && line == old[next]) {
      ++next;
    } else {
      added.push_back(line);
    }
  }
  EXPECT_EQ(next, old.size());
  return added;
}

struct LineRow {
  const char16_t* property;
  const char* line;  // null: the property gives no line
};

constexpr LineRow kAsxLines[] = {
    {u"Entry_Duration", "<Duration Value = \"1\" />"},
    {u"ASX_Author", "<Author > 1</Author>"},
    {u"Abstract", "<Abstract > 1</Abstract>"},
    {u"Copyright", "<CopyRight > 1</CopyRight>"},
    {u"ASX_Title", "<Title> 1</Title>"},
    {u"ASX_SongName", "<Param Name = \"Name\" Value = \"1\" />"},
    {u"Entry_ArtistName", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"Entry_AlbumName", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"Entry_Genre", "<Param Name = \"Genre\" Value = \"1\" />"},
    {u"MediaType", "<Param Name = \"MediaType\" Value = \"1\" />"},
    {u"Entry_TrackNumber", "<Param Name = \"OriginalIndex\" Value = \"1\" />"},
    {u"DigitallySecure", "<Param Name = \"DigitallySecure\" Value = \"1\" />"},
    {u"Entry_CreationDate", "<Param Name = \"CreationDate\" Value = \"1\" />"},
    {u"Entry_SongName", nullptr},
    {u"Entry_SongTitle", nullptr},
    {u"PlaylistAttribute", nullptr},
    {u"HREF", nullptr},
    {u"Entry_PlayListName", nullptr},
    {u"HasExtendedInfo", nullptr},
};

constexpr LineRow kPlainLines[] = {
    {u"Entry_Duration", "<Duration Value = \"00:00:01.000\" />"},
    {u"Entry_SongTitle", "<Title> 1</Title>"},
    {u"Entry_SongName", "<Param Name = \"Name\" Value = \"1\" />"},
    {u"Entry_ArtistName", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"Entry_AlbumName", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"Entry_Genre", "<Param Name = \"Genre\" Value = \"1\" />"},
    {u"Entry_TrackNumber", "<Param Name = \"OriginalIndex\" Value = \"1\" />"},
    {u"Entry_CreationDate", "<Param Name = \"CreationDate\" Value = \"1\" />"},
    {u"Entry_PlayListName", nullptr},
    {u"HasExtendedInfo", nullptr},
};

TEST_F(NativeWriterTest, EachValueOfAnEntryGivesItsOwnLineAndNothingWhenItIsEmpty) {
  const auto check = [this](std::int32_t type, const LineRow& row) {
    const std::string bare = AsxOf(type, {});
    const Lines expected = row.line == nullptr ? Lines() : Lines({row.line, ""});
    EXPECT_EQ(Added(AsxOf(type, {{row.property, String(u"1")}}), bare), expected)
        << type << " " << Utf8(row.property);
  };
  for (const LineRow& row : kAsxLines) {
    check(1, row);
    check(2, row);
  }
  for (std::int32_t type = 3; type <= 6; ++type) {
    for (const LineRow& row : kPlainLines) check(type, row);
  }
}

constexpr LineRow kPlaylistLines[] = {
    {u"ASX_Author", "<Author > 1</Author>"},
    {u"ASX_Title", "<Title> 1</Title>"},
    {u"ASX_Artist", "<Param Name = \"Artist\" Value = \"1\" />"},
    {u"ASX_Album", "<Param Name = \"Album\" Value = \"1\" />"},
    {u"CreationTime", "<Param Name = \"CreationTime\" Value = \"1\" />"},
    {u"ASX_PlayListAttribute", "<Param Name = \"PlayListAttribute\" Value = \"1\" />"},
    {u"TotalSongs", nullptr},
};

TEST_F(NativeWriterTest, EachValueOfThePlaylistGivesItsOwnLineAndNothingWhenItIsEmpty) {
  for (std::int32_t type = 1; type <= 6; ++type) {
    const std::string bare = AsxOf(type, {});
    for (const LineRow& row : kPlaylistLines) {
      const Lines expected = row.line == nullptr ? Lines() : Lines({row.line, ""});
      EXPECT_EQ(Added(AsxOf(type, {}, {{row.property, String(u"1")}}), bare), expected)
          << type << " " << Utf8(row.property);
    }
    const bool fromAsx = type <= 2;
    EXPECT_EQ(bare.find("\"AllowShuffle\" Value = \"yes\"") == std::string::npos, fromAsx) << type;
    EXPECT_TRUE(
        bare.starts_with(fromAsx ? "<ASX Version = \"\" >\r\n" : "<ASX Version = \"3.0\" >\r\n"))
        << type;
    // What an ASX playlist tells of itself is fixed for the others.
    const std::string given =
        AsxOf(type, {}, {{u"ASX_Version", String(u"1")}, {u"ASX_AllowShuffle", String(u"no")}});
    EXPECT_EQ(given.starts_with("<ASX Version = \"1\" >\r\n"), fromAsx) << type;
    EXPECT_EQ(given == bare, !fromAsx) << type;
    EXPECT_EQ(given.find("\"AllowShuffle\" Value = \"no\"") != std::string::npos, fromAsx) << type;
  }
}

struct DurationRow {
  const char* stored;
  const char* asPlain;    // duration in an ASX file from an M3U or PLS source; null for no line
  const char* asSeconds;  // in the M3U and the PLS file
};

constexpr DurationRow kDurations[] = {
    {"", nullptr, "0"},
    {"0", "00:00:00.000", "0"},
    {"-1", "00:00:00.000", "0"},
    {"59", "00:00:59.000", "0"},
    {"90", "00:02:30.000", "0"},
    {"3600", "01:00:00.000", "0"},
    {"32767", "09:06:07.000", "0"},
    {"32768", nullptr, "0"},
    {"abc", nullptr, "0"},
    {"00:03:35.000", "00:00:00.000", "215"},
    {"09:59:59.999", "00:00:00.000", "35999"},
    {"10:00:00.000", "00:00:00.000", "0"},
    {"00:03:35", "00:00:00.000", "0"},
    {"x:y:z.0", "00:00:00.000", "0"},
};

TEST_F(NativeWriterTest, DurationsAreConvertedToEachSyntax) {
  for (const DurationRow& row : kDurations) {
    for (const std::int32_t type : {1, 2, 3, 4, 5, 6}) {
      const std::string stored = row.stored;
      const std::string name = NextName();
      const String duration(stored.begin(), stored.end());
      NewPlayList(type, String(name.begin(), name.end()) + u".x");
      Add({kStreamType, kStream, {u"HasExtendedInfo", true}, {u"Entry_Duration", duration}});
      Write();
      const char* const shown = type > 2 ? row.asPlain : stored.empty() ? nullptr : stored.c_str();
      const std::string asx =
          Text(u"Windows Media Player\\" + String(name.begin(), name.end()) + u".asx");
      const std::string line =
          shown == nullptr ? "" : "<Duration Value = \"" + std::string(shown) + "\" />\r\n\r\n";
      EXPECT_NE(asx.find("<Ref href = \"http://host/a\"/>\r\n\r\n" + line + "<Param"),
                std::string::npos)
          << type << " " << stored << "\n"
          << asx;
      const std::string seconds = row.asSeconds;
      EXPECT_EQ(Text(u"WinAmp\\" + String(name.begin(), name.end()) + u".m3u"),
                "#EXTM3U\r\n#EXTINF:" + seconds + ", - \r\nhttp://host/a\r\n")
          << type << " " << stored;
      EXPECT_EQ(Text(u"Sonique\\" + String(name.begin(), name.end()) + u".pls"),
                "[playlist]\r\nLength1=" + seconds +
                    "\r\nTitle1= - \r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n")
          << type << " " << stored;
    }
  }
}

TEST_F(NativeWriterTest, WithoutExtendedInformationThereIsOnlyThePath) {
  NewPlayList(4);
  Add({kStreamType,
       kStream,
       {u"Entry_ArtistName", String(u"a")},
       {u"Entry_SongName", String(u"s")},
       {u"Entry_Duration", String(u"00:00:05.0")}});
  Write();
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kPlsFile),
            "[playlist]\r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n");
}

TEST_F(NativeWriterTest, EntriesOfAPlsFileAreNumberedFromOne) {
  NewPlayList(5);
  for (int i = 1; i <= 11; ++i) {
    Add({kStreamType, kStream, {u"HasExtendedInfo", i == 10}});
  }
  Write();
  std::string expected = "[playlist]\r\n";
  for (int i = 1; i <= 11; ++i) {
    const std::string n = std::to_string(i);
    if (i == 10) expected += "Length10=0\r\nTitle10= - \r\n";
    expected += "File" + n + "=http://host/a\r\n";
  }
  EXPECT_EQ(Text(kPlsFile), expected + "NumberOfEntries=11\r\nVersion=2\r\n");
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

TEST_F(NativeWriterTest, AnErrorEndsTheSyntaxInHandAndWhatWasWrittenStays) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(4);
  Add({kStreamType, kStream});
  Add(std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{4}}}));
  Add({kStreamType, kStream});
  EXPECT_EQ(Write(), Variant(false));
  component.SetObserver(&watcher);
  const std::string asx =
      "<ASX Version = \"3.0\" >\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n"
      "<Entry>\r\n<Ref href = \"http://host/a\"/>\r\n\r\n"
      "<Param Name = \"SourceURL\" Value = \"http://host/a\" />\r\n\r\n</Entry>\r\n\r\n<Entry>\r\n";
  EXPECT_EQ(Text(kAsxFile), asx);
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\nhttp://host/a\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "no file");  // of the same syntax as the one before
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\nFile1=http://host/a\r\n");
  EXPECT_EQ(follower.steps,
            Lines({"begin 1 Windows Media Player\\Mix.asx",
                   "torn Windows Media Player\\Mix.asx " + std::to_string(asx.size()),
                   "begin 3 WinAmp\\Mix.m3u", "torn WinAmp\\Mix.m3u 24", "begin 5 Sonique\\Mix.pls",
                   "torn Sonique\\Mix.pls 33"}));
}

TEST_F(NativeWriterTest, AnEntryOfAnotherKindThanItsTypeSaysEndsTheAsxFileAlone) {
  NewPlayList(1);
  const ObjectRef entry = component.Create(u"PlsEntry");
  SetAll(*entry, {{u"Entry_EntryType", std::int32_t{1}}, kStreamType, kStream});
  Add(entry);
  Write();
  EXPECT_EQ(Text(kAsxFile),
            "<ASX Version = \"\" >\r\n<Entry>\r\n<Ref href = \"http://host/a\"/>\r\n\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "http://host/a\0\r\n"s);
  EXPECT_EQ(Text(kPlsFile),
            "[playlist]\r\nFile1=http://host/a\r\nNumberOfEntries=1\r\nVersion=2\r\n");
}

TEST_F(NativeWriterTest, AnEntryThatIsShortOfMemoryEndsTheSyntaxToo) {
  NewPlayList(6);
  const auto entry = std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{6}}});
  Add(entry);
  entry->shortOfMemory = true;
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\n");
}

TEST_F(NativeWriterTest, MoreEntriesThanSixteenBitsCountEndEachSyntaxBehindItsHeader) {
  NewPlayList(3);
  const ObjectRef entry = Add({kStreamType, kStream});
  const auto entries = std::dynamic_pointer_cast<norvo::Entries>(Entries());
  ASSERT_NE(entries, nullptr);
  while (entries->TotalSongs() < 32768) entries->Add(entry);
  EXPECT_EQ(Write(), Variant(false));
  EXPECT_EQ(
      Text(kAsxFile),
      "<ASX Version = \"3.0\" >\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n");
  EXPECT_EQ(Text(kWinampFile), "#EXTM3U\r\n");
  EXPECT_EQ(Text(kMusicMatchFile), "no file");
  EXPECT_EQ(Text(kPlsFile), "[playlist]\r\n");
}

TEST_F(NativeWriterTest, TheWatcherHearsOfEachFileBeforeItIsMadeAndWhenItIsWhole) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(5);
  Write();
  component.SetObserver(&watcher);
  EXPECT_EQ(
      follower.steps,
      Lines({"begin 1 Windows Media Player\\Mix.asx", "whole Windows Media Player\\Mix.asx 81",
             "begin 3 WinAmp\\Mix.m3u", "whole WinAmp\\Mix.m3u 9",
             "begin 6 MusicMatch Jukebox\\Mix.m3u", "whole MusicMatch Jukebox\\Mix.m3u 0",
             "begin 5 Sonique\\Mix.pls", "whole Sonique\\Mix.pls 42"}));
}

TEST_F(NativeWriterTest, AFileThatCannotBeMadeIsToldAndTheNextSyntaxTried) {
  FileFollower follower(*platform);
  component.SetObserver(&follower);
  NewPlayList(5);
  platform->AddFolder(String(kRoot) + String(kWinampFile));  // no file: the name counts as free
  platform->FailOn(u"OpenForAppending", 1, error::kPermissionDenied);
  EXPECT_EQ(Write(), Variant(false));
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.steps, Lines({"begin 1 Windows Media Player\\Mix.asx",
                                   "torn Windows Media Player\\Mix.asx no file",
                                   "begin 3 WinAmp\\Mix.m3u", "torn WinAmp\\Mix.m3u no file",
                                   "begin 5 Sonique\\Mix.pls", "whole Sonique\\Mix.pls 42"}));
  EXPECT_EQ(Written(), Lines({Utf8(kPlsFile)}));
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeWriterTest, OnAFullDiskWhatWasWrittenStaysAndTheWatcherHearsThatItIsNotWhole) {
  constexpr int kEntries = 3000;  // some pieces of the larger files
  NewPlayList(3);
  const ObjectRef entry = Add({kStreamType, kStream});
  for (int i = 1; i < kEntries; ++i) Add(entry);
  Write();
  const std::string whole = Text(kWinampFile);
  ASSERT_EQ(whole.size(), 9 + kEntries * std::string("http://host/a\r\n").size());
  const std::size_t appends = platform->Calls(u"Append");
  for (std::size_t k = 1; k <= appends; ++k) {
    FileFollower follower(*platform);
    component.SetObserver(&follower);
    const std::size_t before = Written().size();
    platform->FailOn(u"Append", k, error::kDiskFull);
    EXPECT_EQ(Write(), Variant(false)) << k;
    component.SetObserver(&watcher);
    platform->Log().StopFailing();
    Lines torn;
    for (const std::string& step : follower.steps) {
      if (step.starts_with("torn ")) torn.push_back(step);
    }
    ASSERT_EQ(torn.size(), 1u) << k;
    const bool inM3u = torn[0].find("WinAmp") != std::string::npos;
    // An error in the first M3U file leaves the second one out.
    EXPECT_EQ(Written().size() - before, inM3u ? 3u : 4u) << k;
    const std::string name = torn[0].substr(5, torn[0].rfind(' ') - 5);
    const std::string sound =
        name.substr(0, name.find_first_of("\\")) + "\\Mix" + name.substr(name.rfind('.'));
    const std::string rest = Text(String(name.begin(), name.end()));
    EXPECT_EQ(torn[0].substr(torn[0].rfind(' ') + 1), std::to_string(rest.size()));
    EXPECT_LT(rest.size(), Text(String(sound.begin(), sound.end())).size()) << k;
    EXPECT_TRUE(Text(String(sound.begin(), sound.end())).starts_with(rest)) << k;
    EXPECT_TRUE(rest.empty() || rest.ends_with("\r\n")) << k;
  }
  EXPECT_GT(appends, 8u);
  EXPECT_TRUE(log.empty());
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
