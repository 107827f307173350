#include "machines/TargetFolder.h"

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

class TargetFolderTest : public MachineFoldersTest {};

TEST_F(TargetFolderTest, AFolderThatIsNoMachineIsMadeOne) {
  const TargetFolder target(At("some/new"), false);
  EXPECT_TRUE(fs::is_directory(At("some/new/C")));
  const std::vector<HostedDrive> drives = target.Machine()->DriveFolders();
  ASSERT_EQ(drives.size(), 1u);
  EXPECT_EQ(drives[0].letter, u'C');
  EXPECT_EQ(drives[0].folder, At("some/new/C"));
}

TEST_F(TargetFolderTest, AMachineIsTakenAsItIs) {
  fs::create_directories(At("new/d"));
  const TargetFolder target(At("new"), false);
  EXPECT_EQ(target.Machine()->DriveFolders()[0].letter, u'D');
  EXPECT_FALSE(fs::exists(At("new/C")));
}

TEST_F(TargetFolderTest, ForADryRunAnEmptyMachineStandsForIt) {
  fs::path stead;
  {
    const TargetFolder target(At("new"), true);
    stead = target.Machine()->DriveFolders().at(0).folder;
    EXPECT_TRUE(fs::is_directory(stead));
    EXPECT_FALSE(fs::exists(At("new")));
  }
  EXPECT_FALSE(fs::exists(stead));
  fs::create_directories(At("new/C"));
  EXPECT_EQ(TargetFolder(At("new"), true).Machine()->DriveFolders().at(0).folder, At("new/C"));
}

TEST_F(TargetFolderTest, WhatCannotBeMadeAMachineIsRefusedWithTheReason) {
  Put(At("file"), "");
  ExpectError(ErrorOf([this] { TargetFolder(At("file"), false); }), MoveFault::MachineNotMade,
              At("file").string(), "Not a directory");
  ExpectError(ErrorOf([this] { TargetFolder(At("file/new"), false); }), MoveFault::MachineNotMade,
              At("file/new").string(), "Not a directory");
}

}  // namespace
}  // namespace norvo
