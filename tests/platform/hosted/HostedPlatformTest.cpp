#include <cstring>

#include "controller/GenericCollector.h"
#include "support/LibraryTest.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

class HostedPlatformTest : public TestMachine {
 protected:
  std::string DriveList() {
    std::string list;
    for (const Drive& drive : Files().Drives()) {
      list += static_cast<char>(drive.letter);
      list += std::to_string(static_cast<int>(drive.type));
    }
    return list;
  }
};

TEST_F(HostedPlatformTest, AFolderThatHoldsNoMachineIsRefused) {
  std::filesystem::create_directories(Outside("empty/CC"));
  Put(Outside("file"), "");
  for (const char* const name : {"missing", "empty", "file"}) {
    try {
      HostedPlatform platform(Outside(name));
      FAIL() << name;
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.Number(), 76);
      EXPECT_NE(failure.Description().find(String(name, name + std::strlen(name))), String::npos);
    }
  }
}

TEST_F(HostedPlatformTest, ALogLineOfAnErrorNamesItsPathOnce) {
  std::vector<String> lines;
  LogCapture watcher(lines);
  const auto library = OpenLibrary(std::make_shared<HostedPlatform>(Disk("")));
  library->SetObserver(&watcher);
  library->Create(u"helperMan")->Call(u"ParseM3UHeader", u"C:\\gone.m3u");
  CollectGenericFiles(*library, u"C:\\gone");
  EXPECT_EQ(Utf8(lines), Lines({"HelperMan::ParseM3UHeader -> File not found: C:\\gone.m3u",
                                "HelperMan::GenericQueue -> Path not found: C:\\gone\\"}));
}

TEST_F(HostedPlatformTest, AMachineCanConsistOfItsSettingsOnly) {
  Put(Outside("other/machine.ini"), "");
  HostedPlatform platform(Outside("other"));
  EXPECT_TRUE(platform.Files().Drives().empty());
}

TEST_F(HostedPlatformTest, EverySingleLetterFolderIsAFixedDrive) {
  Put(Disk("d/Disc.txt"), "x");
  Put(Disk("EE/a"), "x");
  Put(Disk("F"), "a file");
  EXPECT_EQ(DriveList(), "C2D2");
  EXPECT_EQ(NameOf(u"D:\\disc.txt"), "Disc.txt");
  EXPECT_EQ(Files().TypeOfDrive(u"d:"), DriveType::Fixed);
  EXPECT_EQ(Files().TypeOfDrive(u"E:\\x"), DriveType::Unknown);
  EXPECT_EQ(Files().TypeOfDrive(u"\\\\server\\share"), DriveType::Unknown);
}

TEST_F(HostedPlatformTest, TheSettingsNameDrivesTypesAndPlaces) {
  Put(Outside("disc/Track.cda"), "x");
  Put(Disk("machine.ini"), "[drives]\r\nC=fixed\r\nd = CDROM , " + Outside("disc").string() +
                               "\r\nE=removable\r\nN=network,shares\r\nR=ramdisk\r\nZ=floppy\r\n");
  Put(Disk("shares/n.txt"), "x");
  std::filesystem::create_directory(Disk("G"));
  EXPECT_EQ(DriveList(), "C2D4E1N3R5Z0");
  EXPECT_EQ(NameOf(u"D:\\track.cda"), "Track.cda");
  EXPECT_EQ(NameOf(u"N:\\n.txt"), "n.txt");
  EXPECT_FALSE(Files().FolderExists(u"E:\\")) << "nothing is inserted";
  EXPECT_FALSE(Files().FolderExists(u"G:\\")) << "the settings do not name it";
  ASSERT_EQ(warnings_.size(), 1u);
  EXPECT_NE(warnings_[0].find("floppy"), std::string::npos);
}

TEST_F(HostedPlatformTest, TellsWhichFolderHoldsEachDrive) {
  const auto folders = [](const HostedPlatform& platform) {
    std::string list;
    for (const HostedDrive& drive : platform.DriveFolders()) {
      list += static_cast<char>(drive.letter) + std::to_string(static_cast<int>(drive.type)) + "=" +
              drive.folder.string() + ";";
    }
    return list;
  };
  std::filesystem::create_directories(Disk("D"));
  const std::string c = "C2=" + Disk("C").string() + ";";
  EXPECT_EQ(folders(Machine()), c + "D2=" + Disk("D").string() + ";");
  const std::string disc = Outside("disc").string();
  Put(Disk("machine.ini"), "[Drives]\nN=network,shares\nE=cdrom," + disc + "\nC=fixed\n");
  Restart();
  EXPECT_EQ(folders(Machine()), c + "E4=" + disc + ";N3=" + Disk("shares").string() + ";");
}

TEST_F(HostedPlatformTest, SettingsThatAreTooLargeAreRefusedByName) {
  constexpr std::uintmax_t kMost = 1024 * 1024;
  Put(Disk("machine.ini"), "[Drives]\nC=cdrom\n");
  std::filesystem::resize_file(Disk("machine.ini"), kMost);
  EXPECT_EQ(DriveList(), "C4");
  std::filesystem::resize_file(Disk("machine.ini"), kMost + 1);
  Restart();
  try {
    Machine();
    FAIL() << "one byte too many";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), 7);
    EXPECT_NE(failure.Description().find(u"machine.ini"), String::npos);
  }
}

TEST_F(HostedPlatformTest, ADiscThatIsInsertedLaterIsSeen) {
  Put(Disk("machine.ini"), "[Drives]\nC=fixed\nD=cdrom\n");
  EXPECT_FALSE(Files().FolderExists(u"D:\\"));
  Put(Disk("D/a.mp3"), "x");
  EXPECT_EQ(NameOf(u"D:\\a.mp3"), "a.mp3");
}

TEST_F(HostedPlatformTest, TheSettingsPlaceTheShellsFolders) {
  EXPECT_FALSE(Machine().Shell().FolderPath(5));
  EXPECT_EQ(Machine().Shell().SpecialFolderPath(5), u"C:\\My Documents");
  EXPECT_EQ(Machine().Shell().SpecialFolderPath(13), u"");
  Put(Disk("machine.ini"), "[ShellFolders]\n5=D:\\Büro\n13=C:\\Music\n");
  Restart();
  EXPECT_EQ(Machine().Shell().SpecialFolderPath(5), u"D:\\Büro");
  EXPECT_EQ(Machine().Shell().SpecialFolderPath(13), u"C:\\Music");
  EXPECT_EQ(DriveList(), "C2") << "settings without drives leave the folders as drives";
}

TEST_F(HostedPlatformTest, TheRegistryNamesTheProductAndItsFolder) {
  EXPECT_EQ(Machine().Product().BaseKey(), u"SOFTWARE\\Norvo\\Migration");
  EXPECT_EQ(Machine().Product().Folder(), u"C:\\Norvo\\");
  EXPECT_EQ(Machine().Product().Name(), u"");
  EXPECT_FALSE(std::filesystem::exists(Disk("registry.reg"))) << "questions create nothing";
  Put(Disk("registry.reg"),
      "Windows Registry Editor Version 5.00\n\n[HKLM\\Software\\Norvo\\Migration]\n"
      "\"ProductFolder\"=\"D:\\\\Norvo\"\n\"ProductName\"=\"Mover\"\n");
  Restart();
  EXPECT_EQ(Machine().Product().Folder(), u"D:\\Norvo\\");
  EXPECT_EQ(Machine().Product().Name(), u"Mover");
}

TEST_F(HostedPlatformTest, MessagesGoToTheStandardErrorStreamUnlessTheHostTakesThem) {
  ::testing::internal::CaptureStderr();
  Machine().Messages().Show(u"Title", u"Text ä");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Title: Text ä\n");
  struct Box final : MessageDialog {
    void Show(StringView title, StringView text) override { shown = String(title) + String(text); }
    String shown;
  } box;
  Machine().SetMessageDialog(box);
  Machine().Messages().Show(u"a", u"b");
  EXPECT_EQ(box.shown, u"ab");
}

TEST_F(HostedPlatformTest, SettingsFilesAreReadWhole) {
  EXPECT_EQ(Machine().Settings().Read(u"C:\\a.ini"), std::nullopt);
  EXPECT_EQ(Machine().Settings().Read(u"C:\\nowhere\\a.ini"), std::nullopt);
  EXPECT_EQ(Machine().Settings().Read(u"X:\\a.ini"), std::nullopt);
  const std::string bytes(100000, 'x');
  Put(Disk("C/A.ini"), bytes);
  EXPECT_EQ(Machine().Settings().Read(u"C:\\a.ini"), bytes);
}

TEST_F(HostedPlatformTest, SettingsFilesAreWrittenWithTheirFolders) {
  Machine().Settings().Write(u"C:\\New\\Sub\\a.ini", "one");
  EXPECT_EQ(Get(Disk("C/New/Sub/a.ini")), "one");
  Machine().Settings().Write(u"C:\\NEW\\sub\\A.INI", "two");
  EXPECT_EQ(Get(Disk("C/New/Sub/a.ini")), "two") << "replaced under its own spelling";
  const auto files = std::filesystem::directory_iterator(Disk("C/New/Sub"));
  EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "nothing is left over";
}

TEST_F(HostedPlatformTest, ALinkedSettingsFileIsReplacedWhereItLies) {
  NEEDS_LINKS();
  Put(Disk("C/real/a.ini"), "one");
  MakeFileLink("real/a.ini", Disk("C/a.ini"));
  Machine().Settings().Write(u"C:\\a.ini", "two");
  EXPECT_EQ(Get(Disk("C/real/a.ini")), "two");
  EXPECT_TRUE(std::filesystem::is_symlink(Disk("C/a.ini")));
}

TEST_F(HostedPlatformTest, WritingASettingsFileFails) {
  std::filesystem::create_directories(Disk("C/folder"));
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\folder", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\folder\\", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"X:\\a.ini", "x"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"\\\\s\\t\\a.ini", "x"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\" + String(256, u'n'), "x"); }),
            75);
  const auto files = std::filesystem::directory_iterator(Disk("C"));
  EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "no temporary file is left over";
}

TEST_F(HostedPlatformTest, ASharePathCreatesNothingOnADrive) {
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"\\\\server"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"\\\\server\\share\\a"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForAppending(u"\\\\server\\a.txt", true); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"\\\\server\\a.txt"); }), 76);
  EXPECT_TRUE(std::filesystem::is_empty(Disk("C")));
}

TEST_F(HostedPlatformTest, TheMigrationListIsKeptOnTheDrive) {
  MigrationList& list = Machine().Migration();
  ASSERT_TRUE(list.EnsureGroup(u"Group", u"C:\\Root"));
  EXPECT_TRUE(list.Add({u"C:\\a.mp3", u"x,y", u"Cat"}));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(Get(Disk("C/Root/KVs/MediaList.txt")),
            "\xEF\xBB\xBF"
            "Cat\tC:\\a.mp3\tx,y\r\n");
}

TEST_F(HostedPlatformTest, TwoMachinesShareNothing) {
  std::filesystem::create_directories(Outside("second/C"));
  HostedPlatform second(Outside("second"));
  Put(Disk("C/a.mp3"), "x");
  EXPECT_TRUE(Files().FileExists(u"C:\\a.mp3"));
  EXPECT_FALSE(second.Files().FileExists(u"C:\\a.mp3"));
}

}  // namespace
}  // namespace norvo
