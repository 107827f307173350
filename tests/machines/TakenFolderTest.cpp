#include "machines/TakenFolder.h"

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

using Kind = TakenFolder::Kind;

class TakenFolderTest : public MachineFoldersTest {
 protected:
  TakenFolder Take(const std::string& folder, const std::string& drive = {}) const {
    return TakeFolder(At(folder), drive);
  }
  MoveError ErrorOfTaking(const std::string& folder, const std::string& drive) const {
    return ErrorOf([&] { return Take(folder, drive); });
  }
};

TEST_F(TakenFolderTest, AMachineIniThatTellsOfAMachineMakesOneWhateverElseIsThere) {
  Put(At("new/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  fs::create_directories(At("new/Windows"));
  const TakenFolder taken = Take("new");
  EXPECT_EQ(taken.kind, Kind::DescribedMachine);
  EXPECT_TRUE(taken.IsMachine());
  EXPECT_FALSE(taken.IsDisk());
}

TEST_F(TakenFolderTest, DrivesAloneMakeAMachine) {
  fs::create_directories(At("new/c"));
  fs::create_directories(At("new/D"));
  Put(At("new/.norvo-1.tmp"), "torn");
  const TakenFolder taken = Take("new");
  EXPECT_EQ(taken.kind, Kind::DrivesAlone);
  EXPECT_TRUE(taken.IsMachine());
  EXPECT_EQ(taken.driveFolder, At("new/c"));
}

TEST_F(TakenFolderTest, WhatAMoveHasMadeStaysAMachineWhateverIsPutThere) {
  fs::create_directories(At("new/C"));
  Put(At("new/registry.reg"), "");
  EXPECT_EQ(Take("new").kind, Kind::MadeMachine);
  Put(At("new/My move.html"), "a report");
  fs::create_directories(At("new/Users"));
  const TakenFolder taken = Take("new");
  EXPECT_EQ(taken.kind, Kind::MadeMachine);
  EXPECT_TRUE(taken.IsMachine());
  EXPECT_EQ(taken.driveFolder, At("new/C"));
}

TEST_F(TakenFolderTest, WhatWindowsPutsAtTheTopOfItsDiskTellsOfADiskInWhateverCase) {
  for (const char* const sign :
       {"Windows", "WINDOWS", "winnt", "Users", "documents AND settings", "Program Files"}) {
    const std::string disk = std::string("disk with ") + sign;
    fs::create_directories(At(disk) / sign);
    fs::create_directories(At(disk) / "C");
    const TakenFolder taken = Take(disk);
    EXPECT_EQ(taken.kind, Kind::WindowsDisk) << sign;
    EXPECT_EQ(taken.sign, sign);
    EXPECT_TRUE(taken.IsDisk());
    EXPECT_EQ(taken.letter, u'C');
    EXPECT_EQ(taken.driveFolder, At(disk));
  }
}

TEST_F(TakenFolderTest, OfSeveralSignsTheSystemsOwnFolderIsNamed) {
  for (const char* const name : {"Program Files", "Users", "windows"}) {
    fs::create_directories(At("disk") / name);
  }
  EXPECT_EQ(Take("disk").sign, "windows");
}

TEST_F(TakenFolderTest, AFileOfSuchANameIsNoSign) {
  Put(At("disk/Windows"), "a file");
  EXPECT_EQ(Take("disk").kind, Kind::OtherDisk);
}

TEST_F(TakenFolderTest, AnythingElseIsADiskToo) {
  PutDisk("music");
  fs::create_directories(At("letters/A"));
  fs::create_directories(At("noC/D"));
  Put(At("other/machine.ini"), "[Server]\r\n");
  Put(At("other/file"), "");
  PutDisk("more/C");
  Put(At("more/autoexec.bat"), "");
  for (const char* const name : {"music", "letters", "noC", "other", "more"}) {
    EXPECT_EQ(Take(name).kind, Kind::OtherDisk) << name;
    EXPECT_TRUE(Take(name).IsDisk());
    EXPECT_EQ(Take(name).driveFolder, At(name));
  }
}

TEST_F(TakenFolderTest, WithoutContentsItIsNeither) {
  fs::create_directories(At("empty"));
  Put(At("settings/registry.reg"), "");
  Put(At("settings/.hidden"), "");
  Put(At("stick/System Volume Information/x"), "");
  fs::create_directories(At("stick/$Recycle.Bin"));
  Put(At("file"), "");
  const std::pair<const char*, Kind> rows[] = {{"empty", Kind::Empty},
                                               {"stick", Kind::Empty},
                                               {"settings", Kind::Empty},
                                               {"absent", Kind::Missing},
                                               {"file", Kind::Missing}};
  for (const auto& [name, kind] : rows) {
    const TakenFolder taken = Take(name);
    EXPECT_EQ(taken.kind, kind) << name;
    EXPECT_FALSE(taken.IsMachine());
    EXPECT_FALSE(taken.IsDisk());
    EXPECT_EQ(taken.driveFolder, At(name) / "C");
  }
}

TEST_F(TakenFolderTest, ANamedDriveIsOneWhateverItHolds) {
  fs::create_directories(At("drives/C"));
  fs::create_directories(At("disk/Windows"));
  fs::create_directories(At("empty"));
  for (const char* const name : {"drives", "disk", "empty", "absent"}) {
    for (const char* const drive : {"D", "d", "D:"}) {
      const TakenFolder taken = Take(name, drive);
      EXPECT_EQ(taken.kind, Kind::NamedDrive) << name;
      EXPECT_TRUE(taken.IsDisk());
      EXPECT_EQ(taken.letter, u'D');
      EXPECT_EQ(taken.driveFolder, At(name));
    }
  }
}

TEST_F(TakenFolderTest, ADriveIsALetterFromCToZ) {
  EXPECT_EQ(Take("x", "C").letter, u'C');
  EXPECT_EQ(Take("x", "z").letter, u'Z');
  for (const char* const drive : {"B", "a:", "[", "DD", "D:\\", ":", "1", "\xC4", " D"}) {
    ExpectError(ErrorOfTaking("x", drive), MoveFault::DriveLetterUnusable, drive);
  }
}

TEST_F(TakenFolderTest, ANamedDriveMayNotContradictAMachineIni) {
  Put(At("new/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  ExpectError(ErrorOfTaking("new", "D"), MoveFault::DriveTold, At("new").string(), "D");
  Put(At("other/machine.ini"), "[Server]\r\n");
  EXPECT_EQ(Take("other", "D").letter, u'D');
}

}  // namespace
}  // namespace norvo
