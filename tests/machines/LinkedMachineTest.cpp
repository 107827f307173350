#include "machines/LinkedMachine.h"

#include "cli/Console.h"
#include "cli/ProgramFixture.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {
namespace {

class LinkedMachineTest : public HostTest {
 protected:
  void SetUp() override {
    fs::create_directories(Work());
    WriteFile(Disk() / "Music" / "One.mp3", "x");
  }
  fs::path Work() const { return Root() / "work"; }
  fs::path Disk() const { return Root() / "a, disk"; }  // machine.ini could not name it

  void Make() const {
    LinkedMachine machine(Work());
    machine.AddDrive(u'D', DriveType::Fixed, Disk());
    machine.AddDrive(u'E', DriveType::CdRom, Disk());
    machine.AddOwnDrive(u'Z');
    machine.Finish();
  }
};

TEST_F(LinkedMachineTest, ItsDrivesAreFoldersElsewhereAndOneOfItsOwn) {
  Make();
  HostedPlatform machine(Work());
  EXPECT_TRUE(machine.Files().FileExists(u"D:\\Music\\One.mp3"));
  EXPECT_EQ(machine.Files().TypeOfDrive(u"D:\\"), DriveType::Fixed);
  EXPECT_EQ(machine.Files().TypeOfDrive(u"E:\\"), DriveType::CdRom);
  EXPECT_EQ(machine.Files().TypeOfDrive(u"C:\\"), DriveType::Unknown);
  machine.Settings().Write(u"Z:\\x.txt", "written");
  EXPECT_EQ(ReadFile(Work() / "Z" / "x.txt"), "written");
  EXPECT_EQ(machine.Shell().SpecialFolderPath(5), u"Z:\\My Documents");
}

TEST_F(LinkedMachineTest, ItIsMadeAnewOverItself) {
  Make();
  const std::string settings = ReadFile(Work() / "machine.ini");
  WriteFile(Work() / "Z" / "kept.txt", "kept");
  fs::rename(Disk(), Root() / "elsewhere");
  fs::create_directories(Disk());
  Make();
  EXPECT_EQ(ReadFile(Work() / "machine.ini"), settings);
  EXPECT_EQ(ReadFile(Work() / "Z" / "kept.txt"), "kept");
  EXPECT_TRUE(fs::is_empty(Work() / "D"));
}

TEST_F(LinkedMachineTest, AnotherMachineIsNotWrittenOver) {
  WriteFile(Work() / "machine.ini", "[Drives]\r\nC=fixed\r\n");
  EXPECT_THROW(LinkedMachine{Work()}, HostError);
  EXPECT_EQ(ReadFile(Work() / "machine.ini"), "[Drives]\r\nC=fixed\r\n");
  WriteFile(Work() / "machine.ini", "");
  EXPECT_THROW(LinkedMachine{Work()}, HostError);
}

TEST_F(LinkedMachineTest, AFolderThatIsADriveAlreadyIsNotReplaced) {
  WriteFile(Work() / "D" / "x.txt", "of the user");
  LinkedMachine machine(Work());
  EXPECT_THROW(machine.AddDrive(u'D', DriveType::Fixed, Disk()), HostError);
  EXPECT_EQ(ReadFile(Work() / "D" / "x.txt"), "of the user");
  EXPECT_FALSE(fs::exists(Work() / "machine.ini"));
}

}  // namespace
}  // namespace norvo
