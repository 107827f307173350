#include "controller/HelperManFixture.h"
#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

/// From the disk's playlists to their generic files, as a host runs it.
class CollectTest : public HelperManFixture {
 protected:
  CollectTest() { AddSamplePlaylists(*platform); }

  bool Collect() { return GetAllPlaylists(Controller()) && GenericQueue(Controller(), 0); }
  std::string Generic(StringView name) {
    return platform->Bytes(String(kDataArea) + String(name) + u".ini");
  }
};

std::string Globals(const std::string& name, int type, const std::string& file) {
  return "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + name +
         "\r\nPlaylistType=" + std::to_string(type) + "\r\nOriginalFileName=" + file +
         "\r\nCreationTime=5/14/2003 10:12:00 AM\r\n";
}

std::string AsxText(const std::string& name, const std::string& file, int entryType) {
  return Globals(name, 2, file) +
         "Author=Me\r\nArtist=\r\nAlbum=\r\nAllowShuffle=yes\r\nTitle=Best of\r\n"
         "PlayListAttribute=\r\nASX Version=3.0\r\nTotalSongs=1\r\n\r\n"
         "[Entry 1 Properties]\r\n"
         "ASX_Album=Some Album\r\nASX_Artist=Some Artist\r\nASX_Author=Writer\r\n"
         "ASX_SongName=Song One\r\nASX_Title=Song One\r\nASX_BitRate=128000\r\n"
         "ASX_HREF=C:\\Music\\One.mp3\r\nASX_MediaAttribute=0\r\nASX_PlayCount=0\r\n"
         "Artist=Some Artist\r\nAlbum=Some Album\r\nDuration=00:03:35.000\r\nEntryType=" +
         std::to_string(entryType) +
         "\r\nFileName=One.mp3\r\nFileSize=228\r\nGenre=Rock\r\nHasExtendedInfo=True\r\n"
         "SongName=Song One\r\nSongTitle=Some Artist - Song One\r\n"
         "SourceURL=C:\\Music\\One.mp3\r\nURLType=0\r\n\r\n";
}

std::string TaggedEntry(const std::string& duration) {
  return "[Entry 1 Properties]\r\nArtist=Some Artist\r\nAlbum=Some Album\r\n" + duration +
         "FileName=One.mp3\r\nFileSize=228\r\nGenre=Rock\r\nHasExtendedInfo=True\r\n"
         "SongName=Song One\r\nSongTitle=Some Artist - Song One\r\n"
         "SourceURL=C:\\Music\\One.mp3\r\nURLType=0\r\n\r\n";
}

std::string PlsText(const std::string& name, int type) {
  return Globals(name, type, name + ".pls") + "TotalSongs=2\r\n\r\n" +
         TaggedEntry("Duration=215\r\n") +
         "[Entry 2 Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\n"
         "SourceURL=http://host/live\r\nURLType=9\r\n\r\n";
}

TEST_F(CollectTest, EachTypeOfPlaylistBecomesItsGenericFile) {
  EXPECT_TRUE(Collect());
  EXPECT_EQ(GenericFiles(*platform).size(), 6u);
  EXPECT_EQ(Generic(u"Best"), AsxText("Best", "Best.m3u.asx", 1));
  EXPECT_EQ(Generic(u"Window"), AsxText("Window", "Window.m3u", 2));
  EXPECT_EQ(Generic(u"Road Trip"),
            Globals("Road Trip", 3, "Road Trip.m3u") + "TotalSongs=2\r\n\r\n" +
                TaggedEntry("Duration=215\r\n") +
                "[Entry 2 Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\n"
                "SourceURL=C:\\Music\\Two.mp3\r\nURLType=4\r\n\r\n");
  EXPECT_EQ(Generic(u"Amp"), PlsText("Amp", 4));
  EXPECT_EQ(Generic(u"Sonic"), PlsText("Sonic", 5));
  EXPECT_EQ(Generic(u"Jukebox"),
            Globals("Jukebox", 6, "Jukebox.m3u") + "TotalSongs=2\r\n\r\n" + TaggedEntry("") +
                "[Entry 2 Properties]\r\nFileName=Two.mp3\r\nFileSize=200\r\n"
                "HasExtendedInfo=False\r\nSongName=Two\r\nSourceURL=C:\\Music\\Two.mp3\r\n"
                "URLType=0\r\n\r\n");
}

TEST_F(CollectTest, TheLogTellsWhatWasLeftOut) {
  EXPECT_TRUE(Collect());
  EXPECT_EQ(
      LogLines(),
      Lines({"Starting Drive Scan...", "Retrieving List of PlayLists Found",
             "NVERR_FILE_NOT_FOUND, PLAYLIST::ReadMMJB, File Not Found: C:\\Music\\gone.mp3"}));
}

TEST_F(CollectTest, TheMediaFilesAreRegisteredOncePerLabel) {
  EXPECT_TRUE(Collect());
  const std::string base = "C:\\My Documents\\Norvo Media\\Music\\";
  const auto record = [&](const std::string& source, const std::string& label,
                          const std::string& folder) {
    return source + " | GET_SHELL_FOLDER,5," + label + "," + base + folder + " | " + label;
  };
  Lines records;
  for (const MediaRecord& kept : platform->Records()) {
    records.push_back(Utf8(kept.source + u" | " + kept.destination + u" | " + kept.category));
  }
  const std::string folder = "Some Artist\\Some Album\\";
  EXPECT_EQ(records, Lines({record("C:\\Music\\One.mp3", "Music PlayLists", folder),
                            record("C:\\Music\\One.mp3", "Media PlayLists", folder),
                            record("C:\\Music\\", "Music PlayLists", ""),
                            record("C:\\Music\\Two.mp3", "Music PlayLists", "")}));
  EXPECT_EQ(platform->Migration().DurableRecords(), records.size());
}

TEST_F(CollectTest, TheByteTotalIsTheSumOfTheReferences) {
  EXPECT_TRUE(Collect());
  EXPECT_EQ(component.MediaBytes(), 6 * 228.0 + 2 * 200.0);
}

TEST_F(CollectTest, RunningTwiceGivesTheSameBytes) {
  EXPECT_TRUE(Collect());
  const auto first = GenericFiles(*platform);
  const std::size_t records = platform->Records().size();
  EXPECT_TRUE(Collect());
  EXPECT_EQ(GenericFiles(*platform), first);
  const auto other = OpenLibrary(platform);
  const ObjectRef controller = other->Create(u"helperMan");
  EXPECT_TRUE(GetAllPlaylists(controller));
  EXPECT_TRUE(GenericQueue(controller, 0));
  EXPECT_EQ(GenericFiles(*platform), first);
  EXPECT_EQ(platform->Records().size(), records);
}

TEST_F(CollectTest, AShorterPlaylistLeavesNothingOfALongerOneBehind) {
  EXPECT_TRUE(Collect());
  platform->AddFile(u"C:\\Music\\Amp.pls",
                    "[playlist]\r\nNumberOfEntries=1\r\nFile1=http://host/live\r\nVersion=2\r\n");
  EXPECT_TRUE(Collect());
  EXPECT_EQ(Generic(u"Amp"), Globals("Amp", 4, "Amp.pls") +
                                 "TotalSongs=1\r\n\r\n[Entry 1 Properties]\r\nFileSize=0\r\n"
                                 "HasExtendedInfo=False\r\nSourceURL=http://host/live\r\n"
                                 "URLType=9\r\n\r\n");
}

TEST_F(CollectTest, AGenericFileIsWrittenOnceAndItsPlaylistReadOnce) {
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  platform->Log().Clear();
  ASSERT_TRUE(GenericQueue(Controller(), 0));
  std::size_t writes = 0;
  for (const std::string& call : Utf8(platform->Trace())) {
    writes += call.starts_with("Settings.Write ") ? 1u : 0u;
  }
  EXPECT_EQ(writes, 6u);
}

TEST_F(CollectTest, TheCostPerEntryDoesNotGrowWithTheirNumber) {
  const auto callsFor = [this](int count) {
    std::string text = "#EXTM3U\r\n";
    for (int i = 0; i < count; ++i) text += "#EXTINF:100,x\r\nC:\\Music\\One.mp3\r\n";
    platform->AddFile(u"C:\\Music\\Road Trip.m3u", text);
    EXPECT_TRUE(GetAllPlaylists(Controller()));
    platform->Log().Clear();
    EXPECT_TRUE(GenericQueue(Controller(), 0));
    return platform->Log().Total() - platform->Calls(u"ReadAt");
  };
  callsFor(1);
  const std::size_t few = callsFor(100);
  const std::size_t more = callsFor(200);
  EXPECT_EQ(more - few, callsFor(300) - more);
}

}  // namespace
}  // namespace norvo
