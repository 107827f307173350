#include "automation/RunTimeError.h"
#include "controller/HelperManFixture.h"
#include "model/ModelTest.h"

namespace norvo {
namespace {

/// Notes the folders and the media files that a search meets.
class SearchFollower final : public Observer {
 public:
  void OnLogLine(StringView line) override { log.push_back(Utf8(line)); }
  void OnFolder(StringView path) override { folders.push_back(Utf8(path)); }
  void OnMediaFile(StringView path) override { files.push_back(Utf8(path)); }
  Lines log;
  Lines folders;
  Lines files;
};

constexpr const char* kMediaStart = "Starting Scan For Media...";

class MigrateMediaTest : public HelperManFixture {
 protected:
  MigrateMediaTest() {
    platform = std::make_shared<MemoryPlatform>();
    library = OpenLibrary(platform);
    library->SetObserver(&found);
    controller = library->Create(u"helperMan");
  }

  void AddFiles(const std::vector<StringView>& paths) {
    for (const StringView path : paths) platform->AddFile(path, "x");
  }
  /// By name, as a script calls it.
  Variant Migrate(StringView types) {
    std::vector<Variant> arguments{String(types)};
    Variant result = controller->Call(u"MigrateMediaByType", arguments);
    EXPECT_EQ(arguments[0], Variant(String(types)));
    return result;
  }

  SearchFollower found;
  ObjectRef controller;
};

TEST_F(MigrateMediaTest, AMachineWithoutMediaIsWalkedToItsEnd) {
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
  EXPECT_EQ(found.log, Lines({kMediaStart}));
  EXPECT_EQ(found.folders, Lines({"C:\\"}));
  EXPECT_EQ(found.files, Lines());
}

TEST_F(MigrateMediaTest, EveryFileOfTheTypesIsVisitedDriveByDrive) {
  platform->AddDrive(u'D', DriveType::Fixed);
  platform->AddDrive(u'E', DriveType::CdRom);
  platform->AddDrive(u'F', DriveType::Network);
  AddFiles({u"D:\\d.mp3", u"E:\\e.mp3", u"F:\\f.mp3", u"C:\\Music\\b.WMA", u"C:\\Music\\A.mp3",
            u"C:\\Music\\Pop\\c.mp3", u"C:\\Music\\read.txt", u"C:\\z.mp3", u"C:\\mp3"});
  EXPECT_EQ(Migrate(u"*.mp3,*.wma"), Variant(true));
  EXPECT_EQ(found.files, Lines({"C:\\z.mp3", "C:\\Music\\A.mp3", "C:\\Music\\b.WMA",
                                "C:\\Music\\Pop\\c.mp3", "D:\\d.mp3"}));
  EXPECT_EQ(found.folders, Lines({"C:\\", "C:\\Music", "C:\\Music\\Pop", "D:\\"}));
  EXPECT_EQ(found.log, Lines({kMediaStart}));
}

struct TypesRow {
  StringView types;
  Lines files;
};

TEST_F(MigrateMediaTest, TheTypesArePatternsSeparatedByCommas) {
  AddFiles({u"C:\\a.mp3", u"C:\\b.wav", u"C:\\c1.wma", u"C:\\noext"});
  const TypesRow rows[] = {
      {u"*", {"C:\\a.mp3", "C:\\b.wav", "C:\\c1.wma", "C:\\noext"}},
      {u"*.MP3,*.Wav", {"C:\\a.mp3", "C:\\b.wav"}},
      {u"*.mp3,*.mp3", {"C:\\a.mp3"}},
      {u"?#.wma", {"C:\\c1.wma"}},
      {u"[ab].*", {"C:\\a.mp3", "C:\\b.wav"}},
      {u"mp3", {}},
      {u"", {}},
      {u",", {}},
      {u"*.mp3, *.wav", {"C:\\a.mp3"}},
      {u"[a", {}},
  };
  for (const TypesRow& row : rows) {
    found.files.clear();
    EXPECT_EQ(Migrate(row.types), Variant(true)) << Utf8(row.types);
    EXPECT_EQ(found.files, row.files) << Utf8(row.types);
  }
}

TEST_F(MigrateMediaTest, OnlyTheBrowsersCacheIsLeftOutAtAnyDepth) {
  AddFiles({u"C:\\Temporary Internet Files\\a.mp3", u"C:\\x\\OLD temporary internet FILES 2\\b.mp3",
            u"C:\\x\\Temporary Internet Files\\deep\\er\\c.mp3", u"C:\\Recycled\\d.mp3",
            u"C:\\System Volume Information\\e.mp3", u"C:\\Temporary Internet Files.mp3"});
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
  EXPECT_EQ(found.files, Lines({"C:\\Temporary Internet Files.mp3", "C:\\Recycled\\d.mp3",
                                "C:\\System Volume Information\\e.mp3"}));
  EXPECT_EQ(found.folders,
            Lines({"C:\\", "C:\\Recycled", "C:\\System Volume Information", "C:\\x"}));
}

TEST_F(MigrateMediaTest, NothingIsDoneWithTheFiles) {
  platform->ConfigureProduct();
  AddFiles({u"C:\\Music\\a.mp3", u"C:\\Music\\b.m3u"});
  const std::vector<String> before = platform->Files().AllFiles();
  platform->Log().Clear();
  EXPECT_EQ(Migrate(u"*"), Variant(true));
  EXPECT_EQ(Utf8(platform->Files().AllFiles()), Utf8(before));
  EXPECT_TRUE(platform->Records().empty());
  EXPECT_EQ(library->MediaBytes(), 0.0);
  for (const StringView operation :
       {u"OpenForReading", u"OpenForAppending", u"FactsOf", u"Settings.Read", u"Settings.Write",
        u"Registry.Write", u"Migration.Add", u"RemoveFile", u"CreateFolder"}) {
    EXPECT_EQ(platform->Calls(operation), 0u) << Utf8(operation);
  }
}

TEST_F(MigrateMediaTest, AFolderThatCannotBeListedCostsOneLogLine) {
  AddFiles({u"C:\\a\\1.mp3", u"C:\\b\\2.mp3", u"C:\\c\\3.mp3"});
  platform->Files().Deny(u"C:\\b");
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
  EXPECT_EQ(found.files, Lines({"C:\\a\\1.mp3", "C:\\c\\3.mp3"}));
  EXPECT_EQ(found.log, Lines({kMediaStart, "HelperMan::MigrateMediaByType -> Permission denied"}));
}

TEST_F(MigrateMediaTest, AnErrorOfTheScannerReachesTheClientBehindTheStartLine) {
  platform->SetScanner(MemoryPlatform::ScannerKind::Raising);
  EXPECT_EQ(NumberRaisedBy([&] { Migrate(u"*.mp3"); }), error::kCannotCreateObject);
  platform->SetScanner(MemoryPlatform::ScannerKind::Absent);
  EXPECT_EQ(NumberRaisedBy([&] { Migrate(u"*.mp3"); }), error::kCannotCreateObject);
  platform->SetScanner(MemoryPlatform::ScannerKind::Working);
  platform->FailOn(u"Drives", 1, error::kDeviceInputOutput);
  EXPECT_EQ(NumberRaisedBy([&] { Migrate(u"*.mp3"); }), error::kDeviceInputOutput);
  EXPECT_EQ(found.log, Lines({kMediaStart, kMediaStart, kMediaStart}));
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
}

TEST_F(MigrateMediaTest, AShortageOfMemoryReachesTheClientAsARunTimeError) {
  AddFiles({u"C:\\a\\1.mp3"});
  Migrate(u"*.mp3");
  bool failed = true;
  for (std::size_t k = 1; failed; ++k) {
    platform->Log().RunOutOfMemoryAt(k);
    const std::int32_t number = NumberRaisedBy([&] { Migrate(u"*.mp3"); });
    failed = platform->Log().HasFailed();
    EXPECT_EQ(number, failed ? error::kOutOfMemory : 0) << k;
  }
}

String Numbered(StringView before, int number, StringView after) {
  const std::string digits = std::to_string(number);
  return String(before) + String(digits.begin(), digits.end()) + String(after);
}

TEST_F(MigrateMediaTest, MoreFilesOfOneFolderThanSixteenBitsCountAreAnOverflow) {
  for (int i = 1; i <= 32767; ++i) platform->AddFile(Numbered(u"C:\\a\\", i, u".mp3"), "");
  platform->AddFile(u"C:\\b\\1.mp3", "");
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
  EXPECT_EQ(found.files.size(), 32768u);
  platform->AddFile(u"C:\\a\\0.mp3", "");
  EXPECT_EQ(NumberRaisedBy([&] { Migrate(u"*.mp3"); }), error::kOverflow);
}

TEST_F(MigrateMediaTest, MoreFoldersThanSixteenBitsCountAreAnOverflow) {
  for (int i = 1; i < 32767; ++i) platform->AddFolder(Numbered(u"C:\\", i, {}));
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));  // the root counts too
  platform->AddFolder(u"C:\\one more");
  EXPECT_EQ(NumberRaisedBy([&] { Migrate(u"*.mp3"); }), error::kOverflow);
}

TEST_F(MigrateMediaTest, EverySearchCountsAnew) {
  for (int i = 1; i <= 20000; ++i) platform->AddFolder(Numbered(u"C:\\", i, {}));
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
  EXPECT_EQ(Migrate(u"*.mp3"), Variant(true));
}

}  // namespace
}  // namespace norvo
