#include "overlay/OverlayPlatform.h"

#include <algorithm>

#include "library/Library.h"
#include "overlay/OverlayFixture.h"
#include "support/MemoryPlatform.h"

namespace norvo {
namespace {

class OverlayPlatformTest : public OverlayFixture {};

TEST_F(OverlayPlatformTest, ShowsTheMachineBelow) {
  EXPECT_TRUE(Files().FolderExists(u"C:\\Music"));
  EXPECT_TRUE(Files().FolderExists(u"C:\\"));
  EXPECT_FALSE(Files().FolderExists(u"D:\\"));
  EXPECT_FALSE(Files().FolderExists(u""));
  const std::optional<FileFacts> facts = Files().FactsOf(u"c:/MUSIC/one.MP3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"One.mp3");
  EXPECT_EQ(facts->modified, FilesBelow().FactsOf(u"C:\\Music\\One.mp3")->modified);
  EXPECT_EQ(Read(u"C:\\Music\\One.mp3"), "one");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
  EXPECT_EQ(Overlay().Settings().Read(u"C:\\Old.txt"), "old");
  EXPECT_EQ(Files().AbsolutePathName(u"\\a\\..\\b"), u"C:\\b");
  EXPECT_EQ(Files().TypeOfDrive(u"C:"), DriveType::Fixed);
  EXPECT_EQ(Files().Drives().size(), 1u);
  EXPECT_EQ(Files().SystemFolder(), FilesBelow().SystemFolder());
  EXPECT_EQ(Files().LocalDate(0).days, FilesBelow().LocalDate(0).days);
  EXPECT_EQ(Overlay().Product().BaseKey(), u"SOFTWARE\\Norvo\\Migration");
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayPlatformTest, AnswersAsAMachineThatIsChanged) {
  HostedPlatform machine(CopyOfMachine());
  const String longName = u"C:\\" + String(256, u'n');
  const StringView paths[] = {u"",
                              longName,
                              u"C:",
                              u"C:\\",
                              u"C:\\Music",
                              u"C:\\Music\\",
                              u"C:\\Music\\One.mp3\\",
                              u"C:\\No\\a.txt",
                              u"C:\\Old.txt\\a.txt",
                              u"D:\\a.txt",
                              u"\\\\server\\share\\a.txt",
                              u"C:\\a\1.txt",
                              u"C:\\New \\",
                              u"C:\\new. \\a.txt.",
                              u"C:\\NEW\\A.TXT",
                              u"C:\\New",
                              u"C:\\New\\..\\b.txt",
                              u"b.txt"};
  const auto answers = [&](Platform& platform) {
    FileSystem& files = platform.Files();
    std::ostringstream text;
    for (const StringView path : paths) {
      text << '"' << ToUtf8(path) << "\": read "
           << NumberRaisedBy([&] { files.OpenForReading(path); }) << ", list "
           << NumberRaisedBy([&] { files.ListFolder(path, {}); }) << ", delete "
           << NumberRaisedBy([&] { files.RemoveFile(path, true); }) << ", create "
           << NumberRaisedBy([&] { files.CreateFolder(path); }) << ", append "
           << NumberRaisedBy([&] { files.OpenForAppending(path, false); }) << ", append anew "
           << NumberRaisedBy([&] { files.OpenForAppending(path, true); }) << ", write whole "
           << NumberRaisedBy([&] { platform.Settings().Write(path, "bytes"); }) << ", read whole "
           << NumberRaisedBy([&] { platform.Settings().Read(path); }) << ", file "
           << files.FileExists(path) << ", folder " << files.FolderExists(path) << '\n';
    }
    return text.str();
  };
  EXPECT_EQ(answers(Overlay()), answers(machine));
}

TEST_F(OverlayPlatformTest, RegistryShowsBelowAndKeepsWhatIsWritten) {
  norvo::Registry& registry = Overlay().Registry();
  const StringView key = u"SOFTWARE\\Norvo";
  const auto text = [](StringView value) { return std::optional<RegistryValue>(String(value)); };
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Text"), text(u"below"));
  EXPECT_TRUE(registry.Write(Hive::LocalMachine, u"software\\NORVO\\", u"TEXT", String(u"above")));
  EXPECT_TRUE(registry.Write(Hive::LocalMachine, key, u"Double", 2.5));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"text"), text(u"above"));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Double"), std::optional<RegistryValue>(2.5));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Number"),
            std::optional<RegistryValue>(std::int32_t{7}));
  EXPECT_EQ(registry.Read(Hive::CurrentUser, key, u"Text"), std::nullopt);
}

TEST_F(OverlayPlatformTest, RegistryCreatesKeysWithThoseAbove) {
  norvo::Registry& registry = Overlay().Registry();
  EXPECT_FALSE(registry.Write(Hive::CurrentUser, u"A\\B", u"x", std::int32_t{1}));
  EXPECT_FALSE(registry.KeyExists(Hive::CurrentUser, u"A\\B"));
  EXPECT_TRUE(registry.CreateKey(Hive::CurrentUser, u"A\\B\\C\\"));
  for (const StringView key : {u"A", u"a\\b", u"A\\B\\C", u"A\\B\\C\\"}) {
    EXPECT_TRUE(registry.KeyExists(Hive::CurrentUser, key)) << ToUtf8(key);
    EXPECT_FALSE(registry.KeyExists(Hive::LocalMachine, key)) << ToUtf8(key);
  }
  EXPECT_TRUE(registry.Write(Hive::CurrentUser, u"a\\B", u"x", std::int32_t{1}));
  EXPECT_TRUE(registry.CreateKey(Hive::CurrentUser, u"A\\B"));
  EXPECT_EQ(registry.Read(Hive::CurrentUser, u"A\\B", u"X"),
            std::optional<RegistryValue>(std::int32_t{1}));
  EXPECT_FALSE(registry.CreateKey(Hive::CurrentUser, u"\\A"));
  EXPECT_FALSE(registry.CreateKey(Hive::CurrentUser, u"A\\\\D"));
}

TEST_F(OverlayPlatformTest, ProductFactsFollowTheWrittenRegistry) {
  EXPECT_EQ(Overlay().Product().Folder(), u"C:\\Norvo\\");
  EXPECT_EQ(Overlay().Product().Name(), u"");
  const String key = Overlay().Product().BaseKey();
  norvo::Registry& registry = Overlay().Registry();
  registry.CreateKey(Hive::LocalMachine, key);
  registry.Write(Hive::LocalMachine, key, u"ProductFolder", String(u"C:\\Elsewhere"));
  registry.Write(Hive::LocalMachine, key, u"ProductName", String(u"Mover"));
  EXPECT_EQ(Overlay().Product().Folder(), u"C:\\Elsewhere\\");
  EXPECT_EQ(Overlay().Product().Name(), u"Mover");
}

TEST_F(OverlayPlatformTest, ShellFoldersAreCreatedHere) {
  EXPECT_FALSE(Overlay().Shell().FolderPath(5 | ShellFolders::kCreateFlag));
  EXPECT_EQ(Overlay().Shell().SpecialFolderPath(5), u"C:\\My Documents");
  EXPECT_TRUE(Files().FolderExists(u"C:\\My Documents"));
  EXPECT_FALSE(FilesBelow().FolderExists(u"C:\\My Documents"));
  EXPECT_EQ(Overlay().Shell().SpecialFolderPath(99), u"");
}

TEST_F(OverlayPlatformTest, ScansWhatItShows) {
  class Visitor final : public ScanVisitor {
   public:
    bool EnterFolder(StringView) override { return true; }
    void VisitFile(StringView folder, StringView name) override {
      found.push_back(String(folder) + u"|" + String(name));
    }
    void CannotList(StringView folder, StringView) override { found.emplace_back(folder); }
    Paths found;
  };
  Files().RemoveFile(u"C:\\Music\\Mix.m3u", false);
  Write(u"C:\\Music\\New.m3u", "x");
  Overlay().Pretend(u"C:\\Plan\\Planned.m3u", Planned());
  Visitor visitor;
  const StringView endings[] = {u".m3u"};
  Overlay().Scanner()->Scan(endings, visitor);
  EXPECT_EQ(visitor.found, (Paths{u"C:\\Music|New.m3u", u"C:\\Plan|Planned.m3u"}));
}

TEST_F(OverlayPlatformTest, MigrationListTakesAllAndKeepsNothing) {
  MigrationList& list = Overlay().Migration();
  EXPECT_TRUE(list.EnsureGroup(u"KVMediaPlayLists", u"C:\\Music\\"));
  EXPECT_TRUE(list.Add({u"C:\\Music\\One.mp3", u"GET_SHELL_FOLDER,5,a,b", u"a"}));
  EXPECT_TRUE(list.Flush());
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayPlatformTest, LeavesTheWarningsOfTheMachineBelowToWhoeverOpenedIt) {
  WriteFile(Place("C/Music/\xFF.mp3"), "odd");
  Paths warnings;
  Below().SetWarningSink([&](StringView line, WarningWeight) { warnings.emplace_back(line); });
  Overlay().SetWarningSink(
      [](StringView, WarningWeight) { ADD_FAILURE() << "the overlay took the warnings"; });
  Names(u"C:\\Music");
  EXPECT_EQ(warnings.size(), 1u);
}

TEST_F(OverlayPlatformTest, ARunOverItGivesTheFilesOfARunOverTheMachine) {
  WriteMix();
  WriteFile(Place("C/Music/Deep/Other.pls"),
            "[playlist]\r\nFile1=..\\One.mp3\r\nTitle1=Ann - One\r\nNumberOfEntries=1\r\n");
  WriteFile(Place("C/Music/Deep/Web.m3u.asx"),
            "<ASX version=\"3.0\">\r\n<Entry>\r\n<Title>Two</Title>\r\n"
            "<Ref href=\"C:\\Music\\Two.mp3\"/>\r\n</Entry>\r\n</ASX>\r\n");
  ASSERT_EQ(Init().code, 0);
  const fs::path other = CopyOfMachine();
  const auto run = [](std::shared_ptr<Platform> platform) {
    const std::unique_ptr<Component> library = OpenLibrary(std::move(platform));
    const ObjectRef controller = library->Create(u"helperMan");
    controller->Call(u"GetAllPlaylists");
    Variant mode = std::int32_t{0};
    controller->Call(u"GenericQueue", Arguments(&mode, 1));
  };
  run(SharedOverlay());
  run(std::make_shared<HostedPlatform>(other));

  std::map<std::string, std::string> above;
  for (const String& path : Overlay().WrittenPaths()) {
    above[ToUtf8(path)] = Overlay().Written(path).value_or("(none)");
  }
  std::map<std::string, std::string> expected;
  for (const auto& file : fs::directory_iterator(other / "C/My Documents/Norvo Media/KVs")) {
    const std::string name = file.path().filename().string();
    if (name == "MediaList.txt") continue;
    expected["C:\\My Documents\\Norvo Media\\KVs\\" + name] = ReadFile(file.path());
  }
  EXPECT_EQ(above, expected);
  std::vector<std::string> names;
  for (const auto& [path, bytes] : expected) names.push_back(path.substr(path.rfind('\\') + 1));
  EXPECT_EQ(names, (std::vector<std::string>{"Mix.ini", "Other.ini", "Web.ini"}));
}

TEST_F(OverlayPlatformTest, TheLibraryCountsAPretendedSongAsThere) {
  WriteMix();
  ASSERT_EQ(Init().code, 0);
  Overlay().Pretend(u"C:\\Music\\Three.mp3", Planned());
  const std::unique_ptr<Component> library = OpenLibrary(SharedOverlay());
  const ObjectRef controller = library->Create(u"helperMan");
  controller->Call(u"GetAllPlaylists");
  Variant mode = std::int32_t{0};
  controller->Call(u"GenericQueue", Arguments(&mode, 1));
  const std::string mix =
      Overlay().Written(u"C:\\My Documents\\Norvo Media\\KVs\\Mix.ini").value_or("");
  EXPECT_TRUE(Holds(mix, "TotalSongs=3\r\n")) << mix;
  EXPECT_TRUE(Holds(mix, "Three.mp3")) << mix;
}

/// A shell that has the function which can create folders.
TEST(OverlayShellTest, TheShellBelowIsNeverAskedToCreate) {
  const auto below = std::make_shared<MemoryPlatform>();
  below->Shell().SetFolder(5, u"C:\\New Documents");
  OverlayPlatform overlay(below);
  EXPECT_EQ(overlay.Shell().FolderPath(5)->path, u"C:\\New Documents");
  EXPECT_FALSE(overlay.Files().FolderExists(u"C:\\New Documents"));
  const std::optional<ShellFolders::Answer> answer =
      overlay.Shell().FolderPath(5 | ShellFolders::kCreateFlag);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 0u);
  EXPECT_EQ(answer->path, u"C:\\New Documents");
  EXPECT_TRUE(overlay.Files().FolderExists(u"C:\\New Documents"));
  EXPECT_EQ(overlay.Shell().SpecialFolderPath(5), u"C:\\New Documents");
  EXPECT_EQ(overlay.Shell().SpecialFolderPath(6), u"");
  EXPECT_EQ(overlay.Shell().FolderPath(6)->status, ShellFolders::kInvalidArgumentStatus);

  EXPECT_FALSE(below->HasFolder(u"C:\\New Documents"));
  EXPECT_EQ(below->Calls(u"Shell.SpecialFolderPath"), 0u);
  const Paths trace = below->Trace();
  EXPECT_EQ(std::count(trace.begin(), trace.end(), u"Shell.FolderPath 5"), 3);
}

TEST(OverlayMessagesTest, GoToTheMachineBelowUnlessTheyAreTaken) {
  const auto below = std::make_shared<MemoryPlatform>();
  OverlayPlatform overlay(below);
  overlay.Messages().Show({}, u"first");
  EXPECT_EQ(below->Calls(u"Messages.Show"), 1u);
  class Box final : public MessageDialog {
   public:
    void Show(StringView, StringView text) override { shown = text; }
    String shown;
  } box;
  overlay.SetMessageDialog(box);
  overlay.Messages().Show({}, u"second");
  EXPECT_EQ(box.shown, u"second");
  EXPECT_EQ(below->Calls(u"Messages.Show"), 1u);
}

}  // namespace
}  // namespace norvo
