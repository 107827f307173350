#include <algorithm>
#include <map>
#include <sstream>

#include "FailingCalls.h"
#include "ScratchFolder.h"
#include "automation/AutomationObject.h"
#include "automation/Conversions.h"
#include "library/Library.h"
#include "services/FolderWalk.h"

namespace norvo {
namespace {

/// Scans one folder in place of all drives.
class OneFolder final : public DriveScanner {
 public:
  OneFolder(FileSystem& files, String folder) : files_(files), folder_(std::move(folder)) {}

  void Scan(std::span<const StringView> endings, ScanVisitor& visitor) override {
    Walk walk(visitor);
    WalkFolders(files_, folder_, endings, walk);
  }

 private:
  class Walk final : public FolderVisitor {
   public:
    explicit Walk(ScanVisitor& visitor) : visitor_(visitor) {}
    bool EnterFolder(StringView folder) override { return visitor_.EnterFolder(Bare(folder)); }
    void VisitFile(StringView folder, StringView name) override {
      visitor_.VisitFile(Bare(folder), name);
    }
    void CannotList(StringView folder, const RunTimeError& failure) override {
      visitor_.CannotList(Bare(folder), failure.Description());
    }

   private:
    static StringView Bare(StringView folder) { return folder.substr(0, folder.size() - 1); }
    ScanVisitor& visitor_;
  };

  FileSystem& files_;
  String folder_;
};

/// The machine's own services for a product of the test's, whose log, data and playlists are in one
/// folder.
class OwnProduct final : public Platform, public ProductInformation, public MessageDialog {
 public:
  static constexpr StringView kKey = u"Software\\Norvo\\Failing";

  OwnProduct(WindowsPlatform& machine, String folder)
      : machine_(machine), folder_(folder), scanner_(machine.Files(), folder + u"Music\\") {}

  FileSystem& Files() override { return machine_.Files(); }
  norvo::Registry& Registry() override { return machine_.Registry(); }
  ShellFolders& Shell() override { return machine_.Shell(); }
  ProductInformation& Product() override { return *this; }
  SettingsStorage& Settings() override { return machine_.Settings(); }
  MigrationList& Migration() override { return machine_.Migration(); }
  DriveScanner* Scanner() override { return &scanner_; }
  MessageDialog& Messages() override { return *this; }
  const CodePage& AnsiPage() override { return machine_.AnsiPage(); }

  String BaseKey() override { return String(kKey); }
  String Folder() override { return folder_; }
  String Name() override { return u"Failing"; }

  void Show(StringView, StringView) override {}

 private:
  WindowsPlatform& machine_;
  String folder_;
  OneFolder scanner_;
};

/// A few playlists that are collected while one call to the system fails.
class FailingCollectTest : public ScratchFolder {
 protected:
  FailingCollectTest() {
    const String key = String(OwnProduct::kKey) + u"\\KVS";
    const String group = key + u"\\KVMediaPlayLists";
    Registry& keys = Machine().Registry();
    keys.CreateKey(Hive::CurrentUser, group);
    keys.Write(Hive::CurrentUser, key, u"mode", std::int32_t{0});
    keys.Write(Hive::CurrentUser, group, u"SubGroupRootName", Path(u"Data\\"));
    MakeFolder(u"Music");
    const std::string tag = "TAG" + Padded("Song One") + Padded("Some Artist") + Padded("Album");
    Put(u"Music\\One.mp3", std::string(100, 'x') + tag + "1999" + Padded("") + '\1');
    Put(u"Music\\Two.mp3", std::string(200, 'x'));
    const std::string one = Utf8(Path(u"Music\\One.mp3"));
    Put(u"Music\\Road Trip.m3u",
        "#EXTM3U\r\n#EXTINF:215,Some Artist - Song One\r\n" + one + "\r\nTwo.mp3\r\n");
    Put(u"Music\\Amp.pls", "[playlist]\r\nFile1=" + one +
                               "\r\nTitle1=a - b\r\nLength1=215\r\nFile2=http://host/live\r\n"
                               "NumberOfEntries=2\r\nVersion=2\r\n");
  }
  ~FailingCollectTest() override {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvo\\Failing");
    ::RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Norvo");
  }

  /// All faults but those that end as another one does: a run takes its time.
  static std::vector<CallFault> Faults() {
    std::vector<CallFault> faults = CallFaults();
    std::erase_if(faults, [](const CallFault& fault) {
      const bool changes = fault.calls == CallFault::Calls::Changing;
      return fault.reason == ERROR_SHARING_VIOLATION ||
             (changes && fault.reason == ERROR_ACCESS_DENIED);
    });
    return faults;
  }

  /// What one program does: it finds the playlists, and writes a generic file of each. With a log.
  void Collect() {
    WindowsPlatform machine;
    const std::unique_ptr<Component> library =
        OpenLibrary(std::make_shared<OwnProduct>(machine, Path(u"") + u"\\"));
    library->SetLogMode(log_mode::kFile);
    const ObjectRef controller = library->Create(u"helperMan");
    controller->Call(u"GetAllPlaylists");
    controller->Call(u"GenericQueue", std::int32_t{0});
  }

  /// All generic files below the data's folder and their bytes.
  std::map<std::string, std::string> GenericFiles() {
    std::map<std::string, std::string> files;
    AddGenericFiles(u"Data", files);
    return files;
  }

  /// The records of the media to be moved; they stay in the order in which they were first made.
  Lines MediaRecords() {
    constexpr std::size_t kMark = 3;
    std::istringstream text(Get(u"Data\\KVs\\MediaList.txt").substr(kMark));
    Lines records;
    for (std::string line; std::getline(text, line);) records.push_back(line);
    std::sort(records.begin(), records.end());
    return records;
  }

  /// Nothing has been collected yet.
  void Forget() {
    RemoveTree(System(Path(u"Data")));
    MakeFolder(u"Data");
    Put(u"Data\\SubNames.txt", "[PlayListStrings]\r\nSzID001=Music\r\nszID005=PlayLists\r\n");
    ::DeleteFileW(ToWide(System(Path(u"VBLog.txt"))));
  }

 private:
  static std::string Padded(std::string text) {
    text.resize(30, '\0');
    return text;
  }

  void AddGenericFiles(const String& inside, std::map<std::string, std::string>& files) {
    if (!Exists(inside)) return;
    for (const FolderItem& item : Files().ListFolder(Path(inside), {})) {
      const String below = inside + u"\\" + item.name;
      if (item.isFolder) AddGenericFiles(below, files);
      if (EndsWithIgnoreCase(item.name, u".ini")) files[Utf8(below)] = Get(below);
    }
  }
};

TEST_F(FailingCollectTest, NothingEscapesEveryFileIsWholeAndTheNextRunMakesTheSameOnes) {
  Forget();
  Collect();
  const auto expected = GenericFiles();
  ASSERT_EQ(expected.size(), 2u);
  const Lines media = MediaRecords();
  ASSERT_EQ(media.size(), 3u);
  ForEachFailure(Faults(), 500, [&](FailingRun& run) {
    Forget();
    run.Try([&] { Collect(); });
    EXPECT_EQ(run.Number(), 0) << run.Where();
    for (const auto& [path, bytes] : GenericFiles()) {
      EXPECT_TRUE(bytes.starts_with("[Global Properties]\r\n")) << run.Where() << " " << path;
      EXPECT_TRUE(bytes.ends_with("\r\n\r\n")) << run.Where() << " " << path;
    }
    Collect();
    EXPECT_EQ(GenericFiles(), expected) << run.Where();
    // A record stays for good once it was made, as that of a song whose tag could not be read.
    const Lines records = MediaRecords();
    EXPECT_TRUE(std::includes(records.begin(), records.end(), media.begin(), media.end()))
        << run.Where();
  });
}

}  // namespace
}  // namespace norvo
