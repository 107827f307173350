#include <algorithm>
#include <functional>

#include "automation/RunTimeError.h"
#include "controller/GenericCollector.h"
#include "controller/HelperManFixture.h"
#include "controller/MediaSearch.h"
#include "controller/PlaylistSearch.h"
#include "playlist/PlayList.h"
#include "readers/PlaylistFixture.h"
#include "services/Logging.h"
#include "services/NVServices.h"

namespace norvo {
namespace {

/// Keeps all that a library tells of its work, in order.
class Follower final : public Observer {
 public:
  void OnLogLine(StringView line) override { lines.emplace_back(line); }
  void OnWarning(const Warning& warning) override {
    EXPECT_TRUE(!lines.empty() && lines.back() == warning.text) << Utf8(warning.text);
    warnings.push_back(warning);
  }
  std::vector<String> lines;
  std::vector<Warning> warnings;
};

/// A machine with some playlists, and a library on it whose work is followed.
struct Machine {
  Machine() {
    platform->ConfigureProduct();
    AddSamplePlaylists(*platform);
    platform->AddFile(u"C:\\My Documents\\Mix.ini", "[Global Properties]\r\nPavaneVersion=1.6\r\n");
    library->SetObserver(&follower);
  }
  ObjectRef NewController() { return library->Create(u"helperMan"); }
  void AddDamagedList() {
    platform->AddFile(kListFile, "[" + Utf8(kGroupRoot) + "]\r\nWMP_ASX Total=many\r\n");
  }
  void FailOn(StringView operation, std::size_t k) {
    platform->FailOn(operation, k, error::kPermissionDenied);
  }

  Follower follower;
  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::unique_ptr<Component> library = OpenLibrary(platform);
};

/// One place that tells of work not done: how it comes to that, and what it tells.
struct Site {
  WarningKind kind;
  const char* path;
  const char* reason;
  const char* line;
  std::function<void(Machine&)> provoke;
};

constexpr const char* kDenied = "Permission denied";

const Site kSites[] = {
    {WarningKind::FolderNotChecked, "C:\\a", kDenied,
     "NVServices::DoesPathExist -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"FolderExists", 1);
       NVServices::DoesPathExist(*machine.library, u"C:\\a", true);
     }},
    {WarningKind::FileNotChecked, "C:\\a.mp3", kDenied,
     "NVServices::DoesFileExist -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"FactsOf", 1);
       NVServices::DoesFileExist(*machine.library, u"C:\\a.mp3");
     }},
    {WarningKind::FolderNotCreated, "C:\\a", kDenied,
     " NVServices::CreatePath -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"CreateFolder", 1);
       NVServices::CreatePath(*machine.library, u"C:\\a\\");
     }},
    {WarningKind::FolderNotChecked, "C:\\a", kDenied,
     " NVServices::CreatePath -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"FolderExists", 3);
       NVServices::CreatePath(*machine.library, u"C:\\a");
     }},
    {WarningKind::ShellFolderNotTold, "", kDenied,
     " NVServices::GetCSIDLPath -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"Shell.FolderPath", 1);
       NVServices::GetCSIDLPath(*machine.library, ShellFolders::kDocuments);
     }},
    {WarningKind::VersionNotRead, "C:\\a.exe", kDenied,
     "NVServices::GetFileVersionString -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"FileVersion", 1);
       String version;
       NVServices::GetFileVersionString(*machine.library, u"C:\\a.exe", version);
     }},
    {WarningKind::GroupRootNotRead, "", kDenied,
     "NVServices::GetSubGroupRoot -> ERROR!!!  Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"Registry.Read", 1);
       String root;
       NVServices::GetSubGroupRoot(*machine.library, u"KVMediaPlayLists", root);
     }},
    {WarningKind::DrivesNotListed, "", kDenied,
     " NVServices::GetPartitionList -> Encountered Errors: Error Data is: Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"Drives", 1);
       NVServices::GetPartitionList(*machine.library);
     }},
    {WarningKind::MediaListNotWritten, "", "",
     "NVERR_OPFAIL, PLAYLIST::ReadPlayList, The media list could not be written",
     [](Machine& machine) {
       PlayList playlist(*machine.library);
       playlist.SetPlayListType(3);
       machine.FailOn(u"Migration.Flush", 1);
       playlist.ReadPlayList(u"C:\\Music\\Road Trip.m3u");
     }},
    {WarningKind::FolderNotListed, "C:\\Music\\", kDenied,
     "HelperMan::GetFolders->Error: <70 - Permission denied> !Unexpected Error in C:\\Music\\",
     [](Machine& machine) {
       machine.FailOn(u"ListFolder", 1);
       std::vector<String> found;
       GetFolders(*machine.library, u"C:\\Music", found);
     }},
    {WarningKind::FolderNotListed, "C:\\Music\\", kDenied,
     "HelperMan::SearchNow -> Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"ListFolder", 1);
       SearchNow(*machine.library, u"C:\\Music", u"*.m3u");
     }},
    {WarningKind::FileNotRead, "C:\\My Documents\\Mix.ini", "",
     "HelperMan::GenericQueue -> The file cannot be read: C:\\My Documents\\Mix.ini",
     [](Machine& machine) {
       machine.FailOn(u"Settings.Read", 1);
       CollectGenericFiles(*machine.library, u"C:\\My Documents");
     }},
    {WarningKind::FolderNotListed, "C:\\My Documents\\", kDenied,
     "HelperMan::GenericQueue -> Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"ListFolder", 1);
       CollectGenericFiles(*machine.library, u"C:\\My Documents");
     }},
    {WarningKind::FolderNotListed, "C:\\", kDenied,
     "HelperMan::GetAllPlayLists -> Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"ListFolder", 1);
       GetAllPlaylists(machine.NewController());
     }},
    {WarningKind::FolderNotListed, "C:\\", kDenied,
     "HelperMan::MigrateMediaByType -> Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"ListFolder", 1);
       SearchMedia(*machine.library, u"*.mp3");
     }},
    {WarningKind::ScanStopped, "", kDenied,
     "HelperMan::GetAllPlayLists -> Exception Thrown: Permission denied",
     [](Machine& machine) {
       const ObjectRef controller = machine.NewController();
       machine.FailOn(u"Scanner", 1);
       GetAllPlaylists(controller);
     }},
    {WarningKind::QueueStopped, "", "Type mismatch",
     "HelperMan::Generic Queue->Error Thrown Type mismatch",
     [](Machine& machine) {
       machine.AddDamagedList();
       GenericQueue(machine.NewController(), 0);
     }},
    {WarningKind::ListNotRead, "", "Type mismatch", "HelperMan::GetPLSList -> Type mismatch",
     [](Machine& machine) {
       machine.AddDamagedList();
       GetPLSList(machine.NewController());
     }},
    {WarningKind::SizeNotWritten, "", "The size total could not be written",
     "HelperMan::UpdateTotalFileSize -> The size total could not be written",
     [](Machine& machine) {
       machine.platform->Registry().RefuseWrites();
       machine.NewController()->Call(u"UpdateTotalFileSize");
     }},
    {WarningKind::SizeNotWritten, "", kDenied,
     "HelperMan::UpdateTotalFileSize -> Permission denied",
     [](Machine& machine) {
       const ObjectRef controller = machine.NewController();
       machine.FailOn(u"Registry.Write", 1);
       controller->Call(u"UpdateTotalFileSize");
     }},
    {WarningKind::FileNotRead, "C:\\Music\\Road Trip.m3u", kDenied,
     "HelperMan::ParseM3UHeader -> Permission denied",
     [](Machine& machine) {
       machine.FailOn(u"OpenForReading", 1);
       CallWith(machine.NewController(), u"ParseM3UHeader", String(u"C:\\Music\\Road Trip.m3u"));
     }},
    {WarningKind::FileNotRead, "C:\\Music\\Amp.pls", "",
     "HelperMan::ParsePLSHeader -> The file cannot be read: C:\\Music\\Amp.pls",
     [](Machine& machine) {
       machine.FailOn(u"Settings.Read", 1);
       CallWith(machine.NewController(), u"ParsePLSHeader", String(u"C:\\Music\\Amp.pls"));
     }},
    {WarningKind::FileNotRead, "C:\\Music\\Amp.pls", "Out of memory",
     "HelperMan::ParsePLSHeader -> Out of memory",
     [](Machine& machine) {
       const ObjectRef controller = machine.NewController();
       machine.platform->Log().RunOutOfMemoryAt(1);
       CallWith(controller, u"ParsePLSHeader", String(u"C:\\Music\\Amp.pls"));
     }},
};

TEST(WarningsTest, EachPlaceTellsWhatWasNotDoneAndWhyBesideItsLogLine) {
  for (const Site& site : kSites) {
    Machine machine;
    site.provoke(machine);
    ASSERT_EQ(machine.follower.warnings.size(), 1u) << site.line;
    const Warning& warning = machine.follower.warnings[0];
    EXPECT_EQ(warning.kind, site.kind) << site.line;
    EXPECT_TEXT(warning.path, String(site.path, site.path + std::string_view(site.path).size()));
    EXPECT_EQ(Utf8(warning.reason), site.reason) << site.line;
    EXPECT_EQ(Utf8(warning.text), site.line);
    EXPECT_EQ(
        std::count(machine.follower.lines.begin(), machine.follower.lines.end(), warning.text), 1)
        << site.line;
  }
}

/// Lines that tell of undone work are known by how they start.
bool TellsOfUndoneWork(StringView line) {
  constexpr StringView kStarts[] = {
      u"HelperMan::", u"NVServices::", u" NVServices::",
      u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, The media list could not be written"};
  return std::any_of(std::begin(kStarts), std::end(kStarts),
                     [line](StringView start) { return line.starts_with(start); });
}

TEST(WarningsTest, WhateverFailsTheWarningsAreTheLinesOfUndoneWorkAndNoOthers) {
  std::size_t told = 0;
  bool failed = true;
  std::size_t k = 0;
  while (failed) {
    Machine machine;
    machine.library->SetLogMode(3);
    machine.platform->Log().FailAt(++k, error::kDeviceInputOutput);
    const ObjectRef controller = machine.NewController();
    GetAllPlaylists(controller);
    GenericQueue(controller, 0);
    GenericQueue(controller, 1);
    failed = machine.platform->Log().HasFailed();
    Lines expected;
    for (const String& line : machine.follower.lines) {
      if (TellsOfUndoneWork(line)) expected.push_back(Utf8(line));
    }
    Lines actual;
    for (const Warning& warning : machine.follower.warnings) actual.push_back(Utf8(warning.text));
    EXPECT_EQ(actual, expected) << "call " << k;
    told += actual.size();
  }
  EXPECT_GT(k, 100u);
  EXPECT_GT(told, 100u);
}

TEST(WarningsTest, AWarningThatCannotBeLoggedIsToldAllTheSame) {
  Machine machine;
  machine.library->SetLogMode(3);
  machine.platform->Log().FailFrom(1, error::kDiskFull);
  EXPECT_NO_THROW(
      WriteWarning(*machine.library, {WarningKind::FileNotRead, u"C:\\a", u"why", u"what: why"}));
  ASSERT_EQ(machine.follower.warnings.size(), 1u);
  EXPECT_TEXT(machine.follower.warnings[0].reason, u"why");
}

}  // namespace
}  // namespace norvo
