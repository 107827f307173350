#include "automation/Conversions.h"
#include "controller/HelperMan.h"
#include "controller/HelperManFixture.h"
#include "model/ModelTest.h"
#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

constexpr const char* kNoType =
    "NVERR_OPFAIL, HelperMan::GenericQueue, Invalid Playlist SubType for PlayList";
constexpr const char* kNotRead =
    "NVERR_OPFAIL, HelperMan::GenericQueue, PlayList object could not be fully initiallized! "
    "Resuming next Playlist";

class QueueTest : public HelperManFixture {
 protected:
  QueueTest() { platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia()); }

  /// Lists the paths as .asx files, whatever they are, and runs the queue.
  bool Run(const Lines& paths) {
    Lines lines = {"WMP_ASX Total=" + std::to_string(paths.size()), "[WMP_ASX]"};
    for (std::size_t i = 0; i < paths.size(); ++i) {
      lines.push_back("File" + std::to_string(i + 1) + "=" + paths[i]);
    }
    AddList(lines);
    log.clear();
    return GenericQueue(Controller(), 0);
  }
  Lines GenericNames() {
    Lines names;
    for (const auto& [path, bytes] : GenericFiles(*platform)) names.push_back(Utf8(path));
    return names;
  }
};

TEST_F(QueueTest, TheControllerHasItsMembersInOrder) {
  EXPECT_EQ(InterfaceOf(*Controller()),
            (Lines{
                "method Boolean GenericQueue, by-ref Int32 Mode",
                "method Strings GetPLSList",
                "method String PlayListToIni, String FileName",
                "method Int32 ParsePLSHeader, String Path",
                "method Int32 ParseM3UHeader, String Path",
                "method Boolean GetAllPlaylists",
                "method Boolean UpdateTotalFileSize",
                "method Boolean MigrateMediaByType, by-ref String MediaTypes",
                "method String DataGrabber, by-ref String FileName, by-ref String header, by-ref "
                "String listKeys",
            }));
}

TEST_F(QueueTest, WithoutAListTheQueueLogsItsStartAndNothingElse) {
  EXPECT_FALSE(GenericQueue(Controller(), 0));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(QueueTest, TotalsOfZeroGiveAnEmptyQueue) {
  EXPECT_FALSE(Run({}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(QueueTest, APlaylistWithoutATypeIsNamedAndSkipped) {
  platform->AddFile(u"C:\\Music\\No.m3u", "# a\r\n\r\n# b\r\na.mp3\r\n");
  platform->AddFile(u"C:\\Music\\No.pls", "[playlist]\r\nVersion=9\r\n");
  platform->AddFile(u"C:\\Music\\No.asx", "text");
  platform->AddFile(u"C:\\Music\\Yes.m3u", "#EXTM3U\r\na.mp3\r\n");
  EXPECT_TRUE(
      Run({"C:\\Music\\No.m3u", "C:\\Music\\No.pls", "C:\\Music\\No.ASX", "C:\\Music\\Yes.m3u"}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart, std::string(kNoType) + "C:\\Music\\No.m3u",
                               std::string(kNoType) + "C:\\Music\\No.pls",
                               std::string(kNoType) + "C:\\Music\\No.ASX"}));
  EXPECT_EQ(GenericNames(), Lines({Utf8(kDataArea) + "Yes.ini"}));
}

TEST_F(QueueTest, APlaylistThatCannotBeReadIsLoggedAndTheQueueGoesOn) {
  platform->AddFile(u"C:\\Music\\Bad.m3u", "#EXTM3U\r\n#EXTINF:1,x");
  platform->AddFile(u"C:\\Music\\Yes.m3u", "#EXTM3U\r\na.mp3\r\n");
  EXPECT_TRUE(Run({"C:\\Music\\Bad.m3u", "", "C:\\Music\\gone.txt", "C:\\Music\\Yes.m3u"}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart,
                               "NVERR_OPFAIL, PLAYLIST::ReadPlayList, ReadM3U for type WINAMP_M3U "
                               "returned False",
                               kNotRead, kNotRead, kNotRead}));
  EXPECT_EQ(GenericNames(), Lines({Utf8(kDataArea) + "Yes.ini"}));
}

TEST_F(QueueTest, AFileOfAnotherKindIsReadWithoutATypeAndIsEmpty) {
  EXPECT_FALSE(Run({"C:\\Music\\a.mp3"}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
}

TEST_F(QueueTest, AnEmptyPlaylistIsSkippedWithoutAMessage) {
  platform->AddFile(u"C:\\Music\\Empty.m3u", "#EXTM3U\r\n");
  EXPECT_FALSE(Run({"C:\\Music\\Empty.m3u"}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
  EXPECT_EQ(GenericNames(), Lines());
}

TEST_F(QueueTest, AnAsxIsProcessedWithoutAGenericFileUnlessANameHoldsTheOtherExtension) {
  const std::string entry =
      "<Asx Version=\"3\">\r\n<Entry>\r\n<Ref Href=\"a.mp3\"/>\r\n</Entry>\r\n";
  platform->AddFile(u"C:\\Music\\Plain.asx", entry);
  EXPECT_TRUE(Run({"C:\\Music\\Plain.asx"}));
  EXPECT_EQ(LogLines(), Lines({kQueueStart}));
  EXPECT_EQ(GenericNames(), Lines());
  platform->AddFile(u"C:\\Music\\Both.m3u.asx", entry);
  platform->AddFile(u"C:\\Music\\Param.asx",
                    "<Param name=\"Name\" value=\"Party.m3u\"/>\r\n" + entry);
  EXPECT_TRUE(Run({"C:\\Music\\Both.m3u.asx", "C:\\Music\\Param.asx"}));
  EXPECT_EQ(GenericNames(), Lines({Utf8(kDataArea) + "Both.ini", Utf8(kDataArea) + "Party.ini"}));
}

TEST_F(QueueTest, ANameOutOfThePlaylistsTextWritesNowhereElse) {
  const std::string entry =
      "<Asx Version=\"3\">\r\n<Entry>\r\n<Ref Href=\"a.mp3\"/>\r\n</Entry>\r\n";
  for (const char* const name : {"..\\Evil.m3u", "C:\\Evil.m3u", "a/b.m3u", "x:y.m3u"}) {
    platform->AddFile(u"C:\\Music\\Evil.asx",
                      "<Param name=\"Name\" value=\"" + std::string(name) + "\"/>\r\n" + entry);
    EXPECT_TRUE(Run({"C:\\Music\\Evil.asx"})) << name;
    EXPECT_EQ(GenericNames(), Lines()) << name;
  }
}

TEST_F(QueueTest, NamesThatDifferOnlyBehindTheirLastPointShareAGenericFile) {
  platform->AddFile(u"C:\\Music\\a.b.m3u", "#EXTM3U\r\na.mp3\r\n");
  platform->AddFile(u"C:\\Music\\a.c.m3u", "#EXTM3U\r\nhttp://host/\r\n");
  EXPECT_TRUE(Run({"C:\\Music\\a.b.m3u", "C:\\Music\\a.c.m3u"}));
  EXPECT_EQ(GenericNames(), Lines({Utf8(kDataArea) + "a.ini"}));
  EXPECT_NE(platform->Bytes(String(kDataArea) + u"a.ini").find("PlaylistName=a.c\r\n"),
            std::string::npos);
}

TEST_F(QueueTest, NothingIsListedAnewAndTheListStaysConsumed) {
  platform->AddFile(u"C:\\Music\\Yes.m3u", "#EXTM3U\r\na.mp3\r\n");
  EXPECT_TRUE(Run({"C:\\Music\\Yes.m3u"}));
  EXPECT_FALSE(platform->HasFile(kListFile));
  EXPECT_FALSE(GenericQueue(Controller(), 0));
}

TEST_F(QueueTest, AnotherModeConsumesTheListAndDoesNothing) {
  platform->AddFile(u"C:\\Music\\Yes.m3u", "#EXTM3U\r\na.mp3\r\n");
  for (const std::int32_t mode : {2, -1, 2147483647}) {
    AddList({"WMP_ASX Total=1", "[WMP_ASX]", "File1=C:\\Music\\Yes.m3u"});
    log.clear();
    EXPECT_FALSE(GenericQueue(NewController(), mode)) << mode;
    EXPECT_EQ(LogLines(), Lines({kQueueStart}));
    EXPECT_FALSE(platform->HasFile(kListFile)) << mode;
    EXPECT_EQ(GenericNames(), Lines()) << mode;
  }
}

TEST_F(QueueTest, ADamagedListIsLoggedAndStays) {
  AddList({"WMP_ASX Total=many"});
  EXPECT_FALSE(GenericQueue(Controller(), 0));
  EXPECT_EQ(LogLines(),
            Lines({kQueueStart, "HelperMan::Generic Queue->Error Thrown Type mismatch"}));
  EXPECT_TRUE(platform->HasFile(kListFile));
}

TEST_F(QueueTest, AnErrorEndsTheQueueWithItsResultSoFar) {
  platform->AddFile(u"C:\\Music\\1.m3u", "#EXTM3U\r\na.mp3\r\n");
  platform->AddFile(u"C:\\Music\\2.m3u", "#EXTM3U\r\na.mp3\r\n");
  platform->FailOn(u"LocalDate", 2, 57);
  EXPECT_TRUE(Run({"C:\\Music\\1.m3u", "C:\\Music\\2.m3u"}));
  EXPECT_EQ(LogLines(),
            Lines({kQueueStart, "HelperMan::Generic Queue->Error Thrown Device I/O error"}));
  EXPECT_EQ(GenericNames(), Lines({Utf8(kDataArea) + "1.ini"}));
}

TEST_F(QueueTest, TheByteTotalIsWrittenUnderTheGroupKey) {
  const String key = String(kGroupRoot) + u"KVs\\KVMediaPlayLists\\";
  platform->AddFile(u"C:\\Music\\1.m3u", "#EXTM3U\r\na.mp3\r\na.mp3\r\n");
  EXPECT_TRUE(Run({"C:\\Music\\1.m3u"}));
  const auto value = platform->Registry().ValueOf(Hive::LocalMachine, key, u"SubGroupSize");
  ASSERT_TRUE(value.has_value());
  ASSERT_TRUE(std::holds_alternative<double>(*value));
  EXPECT_EQ(std::get<double>(*value), 400.0);
}

TEST_F(QueueTest, UpdatingTheTotalSucceedsWithAndWithoutTheKey) {
  EXPECT_TRUE(ToBoolean(Controller()->Call(u"UpdateTotalFileSize")));
  const auto bare = std::make_shared<MemoryPlatform>();
  const auto other = OpenLibrary(bare);
  EXPECT_TRUE(ToBoolean(other->Create(u"helperMan")->Call(u"UpdateTotalFileSize")));
  EXPECT_EQ(bare->Calls(u"Registry.Write"), 0u);
}

TEST_F(QueueTest, ThePlaylistsAreReportedToTheObserver) {
  class Follower final : public Observer {
   public:
    void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
      steps.push_back(Utf8(path) + " " + std::to_string(position) + "/" + std::to_string(count));
    }
    void OnPlaylistEnd(StringView, std::int32_t type, PlaylistOutcome outcome, std::size_t kept,
                       StringView file) override {
      steps.push_back(std::to_string(type) + " " + std::to_string(static_cast<int>(outcome)) + " " +
                      std::to_string(kept) + " " + Utf8(file));
    }
    Lines steps;
  } follower;
  component.SetObserver(&follower);
  platform->AddFile(u"C:\\Music\\1.m3u", "#EXTM3U\r\na.mp3\r\n");
  platform->AddFile(u"C:\\Music\\2.m3u", "#EXTM3U\r\n");
  platform->AddFile(u"C:\\Music\\3.m3u", "text");
  Run({"C:\\Music\\1.m3u", "C:\\Music\\2.m3u", "C:\\Music\\3.m3u", "C:\\gone.txt"});
  component.SetObserver(&watcher);
  EXPECT_EQ(follower.steps, Lines({"C:\\Music\\1.m3u 1/4", "3 0 1 " + Utf8(kDataArea) + "1.ini",
                                   "C:\\Music\\2.m3u 2/4", "3 3 0 ", "C:\\Music\\3.m3u 3/4",
                                   "0 4 0 ", "C:\\gone.txt 4/4", "0 5 0 "}));
}

struct QueueNameRow {
  const char16_t* name;
  const char* generic;
};

TEST_F(QueueTest, AGenericNameIsThePlaylistsWithAnotherExtension) {
  constexpr QueueNameRow kRows[] = {
      {u"Mix.m3u", "Mix.ini"},     {u"a.b.m3u", "a.b.ini"}, {u"list", "list.ini"},
      {u"list.", "list.ini"},      {u"", ".ini"},           {u"MIX.M3U", "MIX.ini"},
      {u"C:\\a.b\\c", "C:\\a.ini"}};
  for (const QueueNameRow& row : kRows) {
    EXPECT_EQ(Utf8(ToText(CallWith(Controller(), u"PlayListToIni", String(row.name)))),
              row.generic);
  }
}

TEST_F(QueueTest, TheDataGrabberDoesNothing) {
  Variant arguments[] = {String(u"a"), String(u"b"), String(u"c")};
  EXPECT_TEXT(ToText(Controller()->Call(u"DataGrabber", arguments)), u"");
  EXPECT_TEXT(ToText(arguments[0]) + ToText(arguments[1]) + ToText(arguments[2]), u"abc");
}

TEST_F(QueueTest, ASizeTotalThatCannotBeWrittenIsLogged) {
  const ObjectRef controller = Controller();
  platform->FailOn(u"Registry.Write", 1, error::kPermissionDenied);
  controller->Call(u"UpdateTotalFileSize");
  ASSERT_EQ(log.size(), 1u);
  EXPECT_TRUE(log[0].starts_with(u"HelperMan::UpdateTotalFileSize -> "));
}

TEST_F(QueueTest, AFileNameThatLooksLikeAPathWritesNowhereElse) {
  platform->AddFile(u"C:\\d:evil.m3u", "#EXTM3U\r\nhttp://a\r\n");
  AddList({"WINAMP_M3U Total=1", "[WINAMP_M3U]", "File1=C:\\d:evil.m3u"});
  EXPECT_TRUE(GenericQueue(Controller(), 0));
  EXPECT_TRUE(GenericFiles(*platform).empty());
}

}  // namespace
}  // namespace norvo
