#include "platform/hosted/HostedLayout.h"

#include "support/TestMachine.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class HostedLayoutTest : public TestMachine {
 protected:
  /// "C2=folder;" for each drive.
  static std::string DrivesOf(const HostedPlatform& platform) {
    std::string list;
    for (const HostedDrive& drive : platform.DriveFolders()) {
      list += static_cast<char>(drive.letter) + std::to_string(static_cast<int>(drive.type)) + "=" +
              drive.folder.string() + ";";
    }
    return list;
  }
  static std::string NameOn(HostedPlatform& platform, StringView path) {
    const std::optional<FileFacts> facts = platform.Files().FactsOf(path);
    return facts ? ToUtf8(facts->name) : "(none)";
  }
  /// Calls `work` with another current folder.
  template <class Work>
  static void In(const std::filesystem::path& folder, Work&& work) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    work();
    std::filesystem::current_path(before);
  }
};

TEST_F(HostedLayoutTest, DrivesStandAnywhereWhateverTheirFoldersAreCalled) {
  const HostedLayout layout = DrivesIn({"a, b", " blank", "; [x]=y", "M\xC3\xBCsik"});
  HostedPlatform platform(layout);
  EXPECT_EQ(platform.Files().Drives().size(), 4u);
  for (const HostedDrive& drive : layout.drives) {
    EXPECT_EQ(NameOn(platform, String(1, drive.letter) + u":\\one.MP3"), "One.mp3") << drive.folder;
  }
  EXPECT_EQ(platform.DriveFolders().back().folder, Outside("M\xC3\xBCsik"));
}

TEST_F(HostedLayoutTest, LettersComeInEitherCaseAndTheFirstOfTwoHolds) {
  Put(Outside("one/One.mp3"), "x");
  HostedLayout layout;
  layout.drives = {{u'z', DriveType::CdRom, Outside("none")},
                   {u'd', DriveType::Network, Outside("one")},
                   {u'D', DriveType::Fixed, Outside("two")},
                   {u'1', DriveType::Fixed, Outside("one")}};
  HostedPlatform platform(layout);
  EXPECT_EQ(DrivesOf(platform),
            "D3=" + Outside("one").string() + ";Z4=" + Outside("none").string() + ";");
  EXPECT_EQ(NameOn(platform, u"d:\\one.mp3"), "One.mp3");
  EXPECT_EQ(NameOn(platform, u"D:\\one.mp3"), "One.mp3");
  EXPECT_EQ(platform.Files().TypeOfDrive(u"z:\\"), DriveType::CdRom);
  EXPECT_FALSE(platform.Files().FolderExists(u"Z:\\")) << "nothing is inserted";
}

TEST_F(HostedLayoutTest, ADriveOfItsOwnTakesWhatIsWrittenAndTheOthersStayAsTheyAre) {
  Put(Outside("disk/Music/One.mp3"), "x");
  std::filesystem::create_directories(Outside("own"));
  HostedLayout layout;
  layout.drives = {{u'C', DriveType::Fixed, Outside("disk")},
                   {u'Z', DriveType::Fixed, Outside("own")}};
  layout.shellFolders = {{ShellFolders::kDocuments, u"Z:\\My Documents"}, {13, u"C:\\Music"}};
  layout.registryFile = Outside("elsewhere/user.reg");
  std::filesystem::create_directories(Outside("elsewhere"));
  HostedPlatform platform(layout);
  EXPECT_TEXT(platform.Shell().SpecialFolderPath(ShellFolders::kDocuments), u"Z:\\My Documents");
  EXPECT_TEXT(platform.Shell().SpecialFolderPath(13), u"C:\\Music");
  EXPECT_TEXT(platform.Shell().SpecialFolderPath(14), u"");
  platform.Settings().Write(u"Z:\\My Documents\\Mix.ini", "written");
  EXPECT_EQ(Get(Outside("own/My Documents/Mix.ini")), "written");
  EXPECT_TRUE(platform.Registry().CreateKey(Hive::CurrentUser, u"Software\\Norvo"));
  EXPECT_NE(Get(Outside("elsewhere/user.reg")), "");
  std::vector<std::string> there;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(Outside("disk"))) {
    there.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(there, (std::vector<std::string>{"Music", "One.mp3"}));
}

TEST_F(HostedLayoutTest, AnEmptyLayoutIsAMachineWithoutDrivesAndRegistry) {
  HostedPlatform platform{HostedLayout()};
  EXPECT_TRUE(platform.Files().Drives().empty());
  EXPECT_FALSE(platform.Files().FolderExists(u"C:\\"));
  EXPECT_FALSE(platform.Files().FileExists(u"C:\\One.mp3"));
  EXPECT_TEXT(platform.Shell().SpecialFolderPath(ShellFolders::kDocuments), u"C:\\My Documents");
  EXPECT_FALSE(platform.Registry().KeyExists(Hive::CurrentUser, u"Software"));
  EXPECT_FALSE(platform.Registry().CreateKey(Hive::CurrentUser, u"Software"));
  EXPECT_EQ(NumberRaisedBy([&] {
              platform.Settings().Write(u"C:\\a.ini", "x");
              return 0;
            }),
            76);
}

TEST_F(HostedLayoutTest, PathsHoldWhenTheProcessChangesItsFolder) {
  Put(Outside("disk/One.mp3"), "x");
  std::unique_ptr<HostedPlatform> given;
  std::unique_ptr<HostedPlatform> read;
  In(Outside(""), [&] {
    HostedLayout layout;
    layout.drives = {{u'C', DriveType::Fixed, "disk"}};
    layout.registryFile = "user.reg";
    given = std::make_unique<HostedPlatform>(layout);
    read = std::make_unique<HostedPlatform>(std::filesystem::path("machine"));
  });
  Put(Disk("C/Two.mp3"), "x");
  EXPECT_EQ(NameOn(*given, u"C:\\One.mp3"), "One.mp3");
  EXPECT_EQ(NameOn(*read, u"C:\\Two.mp3"), "Two.mp3");
  EXPECT_TRUE(given->Registry().CreateKey(Hive::CurrentUser, u"Software"));
  EXPECT_TRUE(read->Registry().CreateKey(Hive::CurrentUser, u"Software"));
  EXPECT_TRUE(std::filesystem::exists(Outside("user.reg")));
  EXPECT_TRUE(std::filesystem::exists(Disk("registry.reg")));
}

TEST_F(HostedLayoutTest, ItsWarningsReachWhoAsksForThem) {
  HostedLayout layout;
  layout.warnings = {u"odd"};
  HostedPlatform platform(layout);
  platform.SetWarningSink(
      [this](StringView line, WarningWeight) { warnings_.push_back(ToUtf8(line)); });
  EXPECT_EQ(warnings_, std::vector<std::string>{"odd"});
}

TEST_F(HostedLayoutTest, IsReadFromAMachinesFolder) {
  Put(Disk("machine.ini"),
      "[Drives]\r\nC=fixed\r\nE=floppy,drives/e\r\nX=cdrom,/mnt/disc\r\nlong=fixed\r\n"
      "[ShellFolders]\r\n5=D:\\Docs\r\n13=\r\n 14 = C:\\Video \r\n05=no\r\nmusic=no\r\n"
      "5=second\r\n99999999999=no\r\n");
  const HostedLayout layout = ReadLayout(Disk(""));
  ASSERT_EQ(layout.drives.size(), 3u);
  EXPECT_EQ(layout.drives[0].letter, u'C');
  EXPECT_EQ(layout.drives[0].folder, Disk("C"));
  EXPECT_EQ(layout.drives[1].type, DriveType::Unknown);
  EXPECT_EQ(layout.drives[1].folder, Disk("drives/e"));
  EXPECT_EQ(layout.drives[2].type, DriveType::CdRom);
  EXPECT_EQ(layout.drives[2].folder, Disk("") / "/mnt/disc");
  EXPECT_EQ(layout.registryFile, Disk("registry.reg"));
  const std::map<std::int32_t, String> folders = {{5, u"D:\\Docs"}, {13, u""}, {14, u"C:\\Video"}};
  EXPECT_EQ(layout.shellFolders, folders);
  ASSERT_EQ(layout.warnings.size(), 1u);
  EXPECT_TEXT(layout.warnings[0], u"machine.ini: drive E: has the unknown type \"floppy\"");
}

TEST_F(HostedLayoutTest, WithoutSettingsEverySingleLetterFolderIsAFixedDrive) {
  std::filesystem::create_directories(Disk("d"));
  std::filesystem::create_directories(Disk("ee"));
  const HostedLayout layout = ReadLayout(Disk(""));
  ASSERT_EQ(layout.drives.size(), 2u);
  EXPECT_EQ(layout.drives[1].letter, u'D');
  EXPECT_EQ(layout.drives[1].type, DriveType::Fixed);
  EXPECT_TRUE(std::filesystem::equivalent(layout.drives[1].folder, Disk("d")));
  EXPECT_TRUE(layout.shellFolders.empty());
  EXPECT_TRUE(layout.warnings.empty());
}

TEST_F(HostedLayoutTest, AFolderThatCannotBeLookedUpIsADriveAllTheSame) {
  NEEDS_LINKS();
  MakeFileLink("D", Disk("D"));  // leads to itself, as no name on a sound disk
  MakeFileLink("nowhere", Disk("E"));
  const HostedLayout layout = ReadLayout(Disk(""));
  ASSERT_EQ(layout.drives.size(), 2u);
  EXPECT_EQ(layout.drives[1].letter, u'D');
  EXPECT_EQ(layout.drives[1].folder, Disk("D"));
}

}  // namespace
}  // namespace norvo
