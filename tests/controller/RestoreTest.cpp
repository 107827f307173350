#include <algorithm>

#include "automation/RunTimeError.h"
#include "controller/HelperManFixture.h"
#include "model/ModelTest.h"
#include "readers/PlaylistFixture.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace std::string_literals;

constexpr const char* kBadType =
    "NVERR_OPFAIL, PLAYLIST::ReadGeneric, Bad Object Type - Unable to Process Entry";
constexpr StringView kDocuments = u"D:\\Papers\\";
constexpr StringView kRestoredRoot = u"D:\\Media\\PlayLists\\";

/// A generic file of one stream.
std::string Stream(const std::string& name, int type) {
  return "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + name +
         "\r\nPlaylistType=" + std::to_string(type) + "\r\nOriginalFileName=" + name +
         ".m3u\r\nTotalSongs=1\r\n\r\n[Entry 1 Properties]\r\nSourceURL=http://host/" + name +
         "\r\nURLType=9\r\n\r\n";
}

/// A new PC: another documents folder and another group root than the old one had.
class RestoreTest : public HelperManFixture {
 protected:
  RestoreTest() {
    platform->AddDrive(u'D', DriveType::Fixed);
    platform->Shell().SetFolder(5, u"D:\\Papers");
    platform->AddFolder(kDocuments);
    platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS", u"mode",
                          std::int32_t{1});
    platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                          u"SubGroupRootName", String(u"D:\\Media"));
    platform->AddFile(u"D:\\Media\\SubNames.txt",
                      "[PlayListStrings]\r\nSzID001=Both\r\nSzID002=Artist\r\nSzID003=Album\r\n"
                      "SzID004=Neither\r\nszID005=PlayLists\r\n");
  }

  void Add(StringView name, std::string_view bytes) {
    platform->AddFile(String(kDocuments) + String(name), bytes);
  }
  bool Restore() { return GenericQueue(Controller(), 1); }

  /// Paths of all native files behind the destination root.
  Lines Written() {
    Lines paths;
    for (const String& path : platform->Files().AllFiles()) {
      if (path.starts_with(kRestoredRoot)) paths.push_back(Utf8(path.substr(kRestoredRoot.size())));
    }
    return paths;
  }
  std::string Native(const std::string& file) {
    const String path = String(kRestoredRoot) + String(file.begin(), file.end());
    return platform->HasFile(path) ? platform->Bytes(path) : "no file";
  }
};

Lines FourFiles(const std::string& name) {
  return {"MusicMatch Jukebox\\" + name + ".m3u", "Sonique\\" + name + ".pls",
          "WinAmp\\" + name + ".m3u", "Windows Media Player\\" + name + ".asx"};
}

Lines Sorted(Lines lines) {
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST_F(RestoreTest, WhatTheOldPcCollectedBecomesNativePlaylistsOnTheNewOne) {
  const auto old = std::make_shared<MemoryPlatform>();
  old->ConfigureProduct();
  AddSamplePlaylists(*old);
  const auto oldLibrary = OpenLibrary(old);
  const ObjectRef collector = oldLibrary->Create(u"helperMan");
  ASSERT_TRUE(GetAllPlaylists(collector));
  ASSERT_TRUE(GenericQueue(collector, 0));
  const auto generic = GenericFiles(*old);
  ASSERT_EQ(generic.size(), 6u);
  for (const auto& [path, bytes] : generic) {
    Add(u"Norvo Media\\KVs\\" + path.substr(kDataArea.size()), bytes);
  }
  EXPECT_TRUE(Restore());

  Lines expected;
  for (const char* const name : {"Amp", "Best", "Jukebox", "Road Trip", "Sonic", "Window"}) {
    const Lines files = FourFiles(name);
    expected.insert(expected.end(), files.begin(), files.end());
  }
  EXPECT_EQ(Sorted(Written()), Sorted(expected));
  EXPECT_EQ(GenericFiles(*platform).size(), 6u);

  const std::string one = "D:\\Media\\Both\\Some Artist\\Some Album\\One.mp3";
  const std::string two = "D:\\Media\\Neither\\Two.mp3";
  const std::string stream = "http://host/live";
  const std::string song = "Some Artist - Song One";
  const auto plainEntry = [&](const std::string& duration) {
    return "<Entry>\r\n<Ref href = \"" + one + "\"/>\r\n\r\n" + duration +
           "<Title> Some Artist - Song One</Title>\r\n\r\n"
           "<Param Name = \"Name\" Value = \"Song One\" />\r\n\r\n"
           "<Param Name = \"Artist\" Value = \"Some Artist\" />\r\n\r\n"
           "<Param Name = \"Album\" Value = \"Some Album\" />\r\n\r\n"
           "<Param Name = \"Genre\" Value = \"Rock\" />\r\n\r\n"
           "<Param Name = \"SourceURL\" Value = \"" +
           one + "\" />\r\n\r\n</Entry>\r\n\r\n";
  };
  const auto bareEntry = [](const std::string& path, const std::string& middle = {}) {
    return "<Entry>\r\n<Ref href = \"" + path + "\"/>\r\n\r\n" + middle +
           "<Param Name = \"SourceURL\" Value = \"" + path + "\" />\r\n\r\n</Entry>\r\n\r\n";
  };
  const auto plainHead = [](const std::string& name) {
    return "<ASX Version = \"3.0\" >\r\n<Param Name = \"Name\" Value = \"" + name +
           "\" />\r\n\r\n<Param Name = \"AllowShuffle\" Value = \"yes\" />\r\n\r\n";
  };
  const std::string duration = "<Duration Value = \"00:04:35.000\" />\r\n\r\n";

  for (const std::string name : {"Amp", "Sonic"}) {
    EXPECT_EQ(Native("Windows Media Player\\" + name + ".asx"),
              plainHead(name) + plainEntry(duration) + bareEntry(stream) + "</ASX>\r\n");
    EXPECT_EQ(Native("WinAmp\\" + name + ".m3u"),
              "#EXTM3U\r\n#EXTINF:0," + song + "\r\n" + one + "\r\n" + stream + "\r\n");
    EXPECT_EQ(Native("MusicMatch Jukebox\\" + name + ".m3u"), one + "\0\r\n"s + stream + "\0\r\n"s);
    EXPECT_EQ(Native("Sonique\\" + name + ".pls"), "[playlist]\r\nLength1=0\r\nTitle1=" + song +
                                                       "\r\nFile1=" + one + "\r\nFile2=" + stream +
                                                       "\r\nNumberOfEntries=2\r\nVersion=2\r\n");
  }
  EXPECT_EQ(Native("Windows Media Player\\Jukebox.asx"),
            plainHead("Jukebox") + plainEntry("") +
                bareEntry(two, "<Param Name = \"Name\" Value = \"Two\" />\r\n\r\n") + "</ASX>\r\n");
  EXPECT_EQ(Native("MusicMatch Jukebox\\Jukebox.m3u"), one + "\0\r\n"s + two + "\0\r\n"s);
  // A reference that was relative has no file name, and therefore no path.
  EXPECT_EQ(Native("WinAmp\\Road Trip.m3u"),
            "#EXTM3U\r\n#EXTINF:0," + song + "\r\n" + one + "\r\n\r\n");
  EXPECT_EQ(Native("Windows Media Player\\Window.asx"),
            "<ASX Version = \"\" >\r\n"
            "<Param Name = \"Name\" Value = \"Window\" />\r\n\r\n"
            "<Entry>\r\n<Ref href = \"" +
                one +
                "\"/>\r\n\r\n"
                "<Duration Value = \"00:03:35.000\" />\r\n\r\n"
                "<Author > Writer</Author>\r\n\r\n"
                "<Title> Song One</Title>\r\n\r\n"
                "<Param Name = \"Name\" Value = \"Song One\" />\r\n\r\n"
                "<Param Name = \"Artist\" Value = \"Some Artist\" />\r\n\r\n"
                "<Param Name = \"Album\" Value = \"Some Album\" />\r\n\r\n"
                "<Param Name = \"Genre\" Value = \"Rock\" />\r\n\r\n"
                "<Param Name = \"MediaAttribute\" Value = \"0\" />\r\n\r\n"
                "<Param Name = \"BitRate\" Value = \"128000\" />\r\n\r\n"
                "<Param Name = \"PlayCount\" Value = \"0\" />\r\n\r\n"
                "<Param Name = \"SourceURL\" Value = \"" +
                one +
                "\" />\r\n\r\n"
                "</Entry>\r\n\r\n</ASX>\r\n");
  EXPECT_EQ(Native("WinAmp\\Window.m3u"), "#EXTM3U\r\n#EXTINF:215," + song + "\r\n" + one + "\r\n");
  // An .asx is of type 2 to the queue and its entries are of type 1: reading drops them.
  EXPECT_EQ(
      Native("Windows Media Player\\Best.asx"),
      "<ASX Version = \"\" >\r\n<Param Name = \"Name\" Value = \"Best\" />\r\n\r\n</ASX>\r\n");
  EXPECT_EQ(Native("WinAmp\\Best.m3u"), "#EXTM3U\r\n");
  Lines lines = {kQueueStart};
  lines.insert(lines.end(), 4, "The FileName Property has not been set");
  EXPECT_EQ(LogLines(), lines);
}

TEST_F(RestoreTest, WithoutAGenericFileTheResultIsFalse) {
  Add(u"read.ini", "[Winamp]\r\ncwd=x\r\n");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
  EXPECT_EQ(Written(), Lines());
}

TEST_F(RestoreTest, TheFilesAreRestoredInTheirOrderAndStayAsTheyAre) {
  Add(u"b.ini", Stream("Mix", 3));
  Add(u"A.INI", Stream("Mix", 4));
  Add(u"sub\\c.ini", Stream("Mix", 6));
  const auto before = GenericFiles(*platform);
  EXPECT_TRUE(Restore());
  EXPECT_EQ(GenericFiles(*platform), before);
  const Lines first = FourFiles("Mix"), second = FourFiles("Mix1"), third = FourFiles("Mix12");
  Lines all = first;
  all.insert(all.end(), second.begin(), second.end());
  all.insert(all.end(), third.begin(), third.end());
  EXPECT_EQ(Sorted(Written()), Sorted(all));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(RestoreTest, RestoringTwiceTouchesNothingOfTheFirstTime) {
  Add(u"a.ini", Stream("Mix", 3));
  EXPECT_TRUE(Restore());
  const std::string first = Native("WinAmp\\Mix.m3u");
  EXPECT_EQ(first, "#EXTM3U\r\nhttp://host/Mix\r\n");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Native("WinAmp\\Mix.m3u"), first);
  EXPECT_EQ(Native("WinAmp\\Mix1.m3u"), first);
  EXPECT_EQ(Written().size(), 8u);
}

TEST_F(RestoreTest, AFileThatTellsLittleIsProcessedAllTheSame) {
  const std::string version = "[Global Properties]\r\nPavaneVersion=1.6\r\n";
  struct {
    const char16_t* name;
    std::string bytes;
    Lines written;
    Lines log;
  } const rows[] = {
      {u"bare.ini", version, {}, {}},
      {u"type.ini",
       version + "PlaylistType=7\r\nTotalSongs=2\r\nOriginalFileName=Mix.m3u\r\n",
       {},
       {kBadType}},
      {u"number.ini",
       version + "OriginalFileName=Mix.m3u\r\nTotalSongs=abc\r\nPlaylistType=3\r\n",
       {},
       {}},
      {u"minus.ini",
       version + "OriginalFileName=Mix.m3u\r\nTotalSongs=-1\r\nPlaylistType=3\r\n",
       FourFiles("Mix"),
       {}},
      {u"many.ini",
       version + "OriginalFileName=Mix.m3u\r\nTotalSongs=32768\r\nPlaylistType=3\r\n",
       {},
       {}},
      {u"comma.ini",
       version + "OriginalFileName=Mix.m3u\r\nTotalSongs=12,5\r\nPlaylistType=3\r\n",
       {},
       {}},
      {u"nopoint.ini",
       version + "OriginalFileName=Mix\r\nTotalSongs=0\r\nPlaylistType=3\r\n",
       {},
       {}},
      {u"noname.ini", version + "TotalSongs=0\r\nPlaylistType=3\r\n", {}, {}},
      {u"punctuation.ini",
       version + "OriginalFileName=(!).m3u\r\nTotalSongs=0\r\nPlaylistType=3\r\n",
       FourFiles(""),
       {}},
      {u"up.ini",
       version + "OriginalFileName=..\\..\\Evil.m3u\r\nTotalSongs=0\r\nPlaylistType=3\r\n",
       FourFiles(""),
       {}},
      {u"folder.ini",
       version + "OriginalFileName=gone\\Evil.m3u\r\nTotalSongs=0\r\nPlaylistType=3\r\n",
       {},
       {}},
      {u"drive.ini",
       version + "OriginalFileName=C:\\Evil.m3u\r\nTotalSongs=0\r\nPlaylistType=3\r\n",
       {},
       {}},
  };
  for (const auto& row : rows) {
    Add(row.name, row.bytes);
    log.clear();
    EXPECT_TRUE(Restore()) << Utf8(row.name);
    EXPECT_EQ(Written(), row.written) << Utf8(row.name);
    Lines lines = {kQueueStart};
    lines.insert(lines.end(), row.log.begin(), row.log.end());
    EXPECT_EQ(LogLines(), lines) << Utf8(row.name);
    for (const String& path : platform->Files().AllFiles()) {
      if (path.starts_with(kRestoredRoot)) platform->Files().RemoveFile(path);
    }
    platform->Files().RemoveFile(String(kDocuments) + row.name);
  }
}

TEST_F(RestoreTest, ThousandsOfEntriesWithoutSectionsBecomeLinesWithoutPaths) {
  Add(u"a.ini",
      "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistType=6\r\nOriginalFileName=Mix.m3u\r\n"
      "TotalSongs=32767\r\n");
  EXPECT_TRUE(Restore());
  std::string text;
  for (int i = 0; i < 32767; ++i) text += "\0\r\n"s;
  EXPECT_TRUE(Native("MusicMatch Jukebox\\Mix.m3u") == text);
  EXPECT_TRUE(Native("Sonique\\Mix.pls")
                  .ends_with("File32767=\r\nNumberOfEntries=32767\r\n"
                             "Version=2\r\n"));
  EXPECT_EQ(log.size(), 1u + 4u * 32767u);
}

TEST_F(RestoreTest, CharactersThatNativeFilesLackBecomeQuestionMarks) {
  Add(u"a.ini",
      EncodeFile(u"[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=Größe 音楽\r\n"
                 u"PlaylistType=3\r\nOriginalFileName=Größe 音楽.m3u\r\nTotalSongs=1\r\n\r\n"
                 u"[Entry 1 Properties]\r\nArtist=Музыка\r\nFileName=\xD83D\xDE00 ä.mp3\r\n"
                 u"HasExtendedInfo=True\r\nSongName=ö\r\nSourceURL=C:\\x\\\xD83D\xDE00 ä.mp3\r\n"
                 u"URLType=0\r\n",
                 FileEncoding::Utf16LittleEndian, Windows1252()));
  EXPECT_TRUE(Restore());
  const String path = String(kRestoredRoot) + u"WinAmp\\Größe 音楽.m3u";
  ASSERT_TRUE(platform->HasFile(path));
  const std::string bytes = platform->Bytes(path);
  EXPECT_TRUE(
      bytes.starts_with("#EXTM3U\r\n#EXTINF:0,?????? - \xF6\r\n"
                        "D:\\Media\\Artist\\??????\\?"))
      << bytes;
  EXPECT_TRUE(bytes.ends_with(" \xE4.mp3\r\n")) << bytes;
}

TEST_F(RestoreTest, OnlyGenericFilesOutsideTheSkippedFoldersAreRestored) {
  Add(u"Recycled\\a.ini", Stream("A", 3));
  Add(u"Temporary Internet Files\\deep\\b.ini", Stream("B", 3));
  Add(u"c.txt", Stream("C", 3));
  Add(u"d.ini\\read.txt", "x");
  platform->AddFile(u"C:\\My Documents\\e.ini", Stream("E", 3));
  EXPECT_FALSE(Restore());
  EXPECT_EQ(Written(), Lines());
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(RestoreTest, AFileAndAFolderThatCannotBeReadAreLoggedAndTheOthersRestored) {
  Add(u"a.ini", Stream("A", 3));
  Add(u"b.ini", Stream("B", 3));
  Add(u"c\\c.ini", Stream("C", 3));
  platform->Files().Deny(String(kDocuments) + u"a.ini");
  platform->Files().Deny(String(kDocuments) + u"c");
  EXPECT_TRUE(Restore());
  EXPECT_EQ(Written(), FourFiles("B"));
  EXPECT_EQ(
      LogLines(),
      Lines({kQueueStart, "HelperMan::GenericQueue -> The file cannot be read: D:\\Papers\\a.ini",
             "HelperMan::GenericQueue -> Permission denied"}));
}

TEST_F(RestoreTest, AMissingDocumentsFolderIsMadeAndHoldsNothing) {
  platform->Shell().SetFolder(5, u"D:\\New\\Papers");
  EXPECT_FALSE(Restore());
  EXPECT_TRUE(platform->HasFolder(u"D:\\New\\Papers"));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(RestoreTest, WithoutALocalDocumentsFolderNothingIsDone) {
  platform->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                        String(u"D:\\Winamp\\Winamp.exe"));
  platform->AddFile(u"D:\\Winamp\\Winamp.ini", "");
  for (const StringView folder : {u"\\\\server\\papers", u"", u"X:\\Papers"}) {
    platform->Shell().SetFolder(5, folder);
    EXPECT_FALSE(Restore()) << Utf8(folder);
    EXPECT_EQ(platform->Bytes(u"D:\\Winamp\\Winamp.ini"), "") << Utf8(folder);
  }
}

TEST_F(RestoreTest, ThePlayersAreSetBehindTheLastFileAlsoWhenThereIsNone) {
  platform->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                        String(u"D:\\Winamp\\Winamp.exe"));
  for (const bool withFile : {false, true}) {
    platform->AddFile(u"D:\\Winamp\\Winamp.ini", "");
    if (withFile) Add(u"a.ini", Stream("Mix", 3));
    platform->Log().Clear();
    EXPECT_EQ(Restore(), withFile);
    EXPECT_EQ(platform->Bytes(u"D:\\Winamp\\Winamp.ini"),
              "[Winamp]\r\ncwd=" + Utf8(kRestoredRoot) + "Winamp\r\n");
    const Lines trace = Utf8(platform->Trace());
    EXPECT_EQ(trace.back(), "Settings.Write D:\\Winamp\\Winamp.ini");
  }
}

TEST_F(RestoreTest, TheCollectingModeAndUnknownModesRestoreNothing) {
  Add(u"a.ini", Stream("Mix", 3));
  for (const std::int32_t mode : {0, 2, -1}) {
    EXPECT_FALSE(GenericQueue(Controller(), mode)) << mode;
    EXPECT_EQ(Written(), Lines()) << mode;
  }
}

TEST_F(RestoreTest, TheModeIsTakenByReferenceAndStays) {
  Add(u"a.ini", Stream("Mix", 3));
  std::vector<Variant> arguments{String(u"1")};
  EXPECT_EQ(Controller()->Call(u"GenericQueue", arguments), Variant(true));
  EXPECT_EQ(arguments[0], Variant(String(u"1")));
}

TEST_F(RestoreTest, TheListOfPlaylistsIsConsumedAndADamagedOneEndsTheQueue) {
  constexpr StringView kList = u"D:\\Media\\KVs\\PlayLists.txt";
  Add(u"a.ini", Stream("Mix", 3));
  platform->AddFile(kList, "[D:\\Media]\r\nWMP_ASX Total=many\r\n");
  EXPECT_FALSE(Restore());
  EXPECT_EQ(LogLines(),
            Lines({kQueueStart, "HelperMan::Generic Queue->Error Thrown Type mismatch"}));
  EXPECT_TRUE(platform->HasFile(kList));
  EXPECT_EQ(Written(), Lines());
  platform->AddFile(kList, "[D:\\Media]\r\nWMP_ASX Total=1\r\n[WMP_ASX]\r\nFile1=C:\\gone.asx\r\n");
  log.clear();
  EXPECT_TRUE(Restore());
  EXPECT_FALSE(platform->HasFile(kList));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

/// Notes the queue's steps, and leaves out what it is told to.
class QueueFollower final : public Observer {
 public:
  bool WantsGenericFile(StringView path) override {
    steps.push_back("wants " + Utf8(path));
    return !path.ends_with(unwanted);
  }
  void OnFolder(StringView path) override { steps.push_back("folder " + Utf8(path)); }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    steps.push_back("begin " + Utf8(path) + " " + std::to_string(position) + "/" +
                    std::to_string(count));
  }
  void OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome outcome, std::size_t kept,
                     StringView file) override {
    EXPECT_EQ(outcome, PlaylistOutcome::Restored);
    steps.push_back("end " + Utf8(path) + " " + std::to_string(type) + " " + std::to_string(kept) +
                    " " + Utf8(file));
  }
  void OnNativeFile(StringView path, std::int32_t type) override {
    steps.push_back("write " + std::to_string(type) + " " + Utf8(path));
  }
  void OnNativeFileEnd(StringView path, bool whole) override {
    if (!whole) steps.push_back("torn " + Utf8(path));
  }
  void OnPlayerSetting(StringView player, StringView, StringView) override {
    steps.push_back("player " + Utf8(player));
  }

  StringView unwanted = u"?";
  Lines steps;
};

TEST_F(RestoreTest, TheWatcherFollowsTheWork) {
  platform->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                        String(u"D:\\Winamp\\Winamp.exe"));
  platform->AddFile(u"D:\\Winamp\\Winamp.ini", "");
  Add(u"a.ini", Stream("A", 4));
  Add(u"b.ini", Stream("B", 7));
  Add(u"c.ini", Stream("C", 3));
  QueueFollower follower;
  follower.unwanted = u"c.ini";
  component.SetObserver(&follower);
  EXPECT_TRUE(Restore());
  component.SetObserver(&watcher);
  const std::string root = Utf8(kRestoredRoot);
  EXPECT_EQ(
      follower.steps,
      Lines({"folder D:\\Papers\\", "wants D:\\Papers\\a.ini", "wants D:\\Papers\\b.ini",
             "wants D:\\Papers\\c.ini", "begin D:\\Papers\\a.ini 1/2",
             "write 1 " + root + "Windows Media Player\\A.asx", "write 3 " + root + "WinAmp\\A.m3u",
             "write 6 " + root + "MusicMatch Jukebox\\A.m3u", "write 5 " + root + "Sonique\\A.pls",
             "end D:\\Papers\\a.ini 4 1 D:\\Papers\\a.ini", "begin D:\\Papers\\b.ini 2/2",
             "end D:\\Papers\\b.ini 7 0 D:\\Papers\\b.ini", "player Winamp"}));
}

TEST_F(RestoreTest, WhenNoFileIsWantedNothingIsProcessed) {
  Add(u"a.ini", Stream("A", 3));
  QueueFollower follower;
  follower.unwanted = u".ini";
  component.SetObserver(&follower);
  EXPECT_FALSE(Restore());
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.steps, Lines({"folder D:\\Papers\\", "wants D:\\Papers\\a.ini"}));
  EXPECT_EQ(Written(), Lines());
}

TEST_F(RestoreTest, AFullDiskTearsAFileAndTheQueueGoesOn) {
  Add(u"a.ini", Stream("A", 3));
  Add(u"b.ini", Stream("B", 3));
  QueueFollower follower;
  component.SetObserver(&follower);
  platform->FailOn(u"Append", 1, error::kDiskFull);
  EXPECT_TRUE(Restore());
  component.SetObserver(&watcher);
  const Lines torn = {"torn " + Utf8(kRestoredRoot) + "Windows Media Player\\A.asx"};
  Lines found;
  for (const std::string& step : follower.steps) {
    if (step.starts_with("torn ")) found.push_back(step);
  }
  EXPECT_EQ(found, torn);
  EXPECT_EQ(Native("Windows Media Player\\A.asx"), "");
  EXPECT_EQ(Written().size(), 8u);
}

}  // namespace
}  // namespace norvo
