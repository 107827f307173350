#include "machines/MachineFolder.h"

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

class MachineFolderTest : public MachineFoldersTest {};

TEST_F(MachineFolderTest, AFolderWithADriveIsOpenedAndAnotherRefusedWithTheReason) {
  fs::create_directories(At("old/C"));
  EXPECT_EQ(OpenMachineFolder(At("old"))->DriveFolders().size(), 1u);
  EXPECT_NE(OpenIfMachine(At("old")), nullptr);
  fs::create_directories(At("empty"));
  EXPECT_EQ(OpenIfMachine(At("empty")), nullptr);
  EXPECT_EQ(OpenIfMachine(At("none")), nullptr);
  const MoveError error = ErrorOf([this] { OpenMachineFolder(At("empty")); });
  EXPECT_EQ(error.Fault(), MoveFault::NoMachine);
  EXPECT_EQ(error.Subject(), At("empty").string());
  EXPECT_NE(error.Detail().find(At("empty").string()), std::string::npos);
}

TEST_F(MachineFolderTest, OnlyWhatCannotBeADiskIsSurelyAMachine) {
  PutDisk("drives/C");
  PutDisk("more/C");
  Put(At("more/autoexec.bat"), "");
  fs::create_directories(At("letters/A"));
  fs::create_directories(At("letters/C"));
  fs::create_directories(At("noC/D"));
  Put(At("described/machine.ini"), "[shellfolders]\r\n5=C:\\Mine\r\n");
  Put(At("other/machine.ini"), "[Server]\r\n");
  EXPECT_TRUE(IsSurelyMachine(At("drives")));
  EXPECT_TRUE(IsSurelyMachine(At("described")));
  for (const char* const name : {"more", "letters", "noC", "other"}) {
    EXPECT_FALSE(IsSurelyMachine(At(name))) << name;
  }
}

TEST_F(MachineFolderTest, WhatCannotBeListedIsToldWithTheReason) {
  Put(At("file"), "");
  ExpectError(ErrorOf([this] { return IsSurelyMachine(At("file")); }), MoveFault::NotListed,
              At("file").string(), "Not a directory");
}

}  // namespace
}  // namespace norvo
