#include <sys/stat.h>

#include "automation/RunTimeError.h"
#include "platform/hosted/SystemPaths.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

using HostedPlatformOnPosixTest = TestMachine;

TEST_F(HostedPlatformOnPosixTest, SettingsThatAreNoFileAreRefusedByName) {
  ASSERT_EQ(::mkfifo(Disk("machine.ini").c_str(), 0666), 0);
  try {
    Machine();
    FAIL() << "a pipe";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), 75);
    EXPECT_NE(failure.Description().find(u"machine.ini is no file"), String::npos);
  }
  std::filesystem::remove(Disk("machine.ini"));
  std::filesystem::create_symlink("/dev/zero", Disk("machine.ini"));
  EXPECT_EQ(NumberRaisedBy([&] { Machine(); }), 75);
}

TEST_F(HostedPlatformOnPosixTest, AReplacedSettingsFileKeepsItsPermissions) {
  Put(Disk("C/a.ini"), "one");
  ASSERT_EQ(::chmod(Disk("C/a.ini").c_str(), 0640), 0);
  Machine().Settings().Write(u"C:\\a.ini", "two");
  struct stat facts = {};
  ASSERT_EQ(::stat(Disk("C/a.ini").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777u, 0640u);
}

TEST_F(HostedPlatformOnPosixTest, DrivesStandInFoldersOfEveryName) {
  const HostedLayout layout = DrivesIn({" blanks ", "trail. ", "\xFF", "back\\slash"});
  HostedPlatform platform(layout);
  for (const HostedDrive& drive : layout.drives) {
    EXPECT_TRUE(platform.Files().FileExists(String(1, drive.letter) + u":\\one.MP3"))
        << drive.folder;
  }
  EXPECT_EQ(platform.DriveFolders()[2].folder, Outside("\xFF"));
}

TEST_F(HostedPlatformOnPosixTest, ANameThatNoPathCanExpressHasNoneOnTheMachine) {
  Put(Outside("disc/a\\b.mp3"), "x");
  const HostedDrive drives[] = {{u'D', DriveType::Fixed, Outside("disc")}};
  EXPECT_FALSE(PathOnMachine(drives, Outside("disc/a\\b.mp3")));
}

}  // namespace
}  // namespace norvo
