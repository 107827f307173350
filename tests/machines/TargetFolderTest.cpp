#include "machines/TargetFolder.h"

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

using Kind = TakenFolder::Kind;

class TargetFolderTest : public MachineFoldersTest {
 protected:
  FolderMove To(const std::string& folder, const std::string& drive = {}) const {
    FolderMove move;
    move.to = At(folder);
    move.toDrive = drive;
    return move;
  }
  static HostedDrive OnlyDrive(const TargetFolder& target) {
    const std::vector<HostedDrive> drives = target.Disks()->DriveFolders();
    EXPECT_EQ(drives.size(), 1u);
    return drives.at(0);
  }
};

TEST_F(TargetFolderTest, AMissingOrEmptyFolderIsMadeAMachine) {
  fs::create_directories(At("empty"));
  for (const auto& [name, kind] : {std::pair{"some/new", Kind::Missing}, {"empty", Kind::Empty}}) {
    const TargetFolder target(To(name), false);
    EXPECT_EQ(target.Taken().kind, kind);
    EXPECT_TRUE(fs::is_directory(At(name) / "C"));
    EXPECT_EQ(OnlyDrive(target).letter, u'C');
    EXPECT_EQ(OnlyDrive(target).folder, At(name) / "C");
    EXPECT_EQ(target.UsualGroupRoot(), "");
    EXPECT_EQ(target.Registry().file, At(name) / "registry.reg");
    EXPECT_EQ(target.Registry().machinePath, "");
    EXPECT_FALSE(fs::exists(target.Registry().file));
  }
}

TEST_F(TargetFolderTest, AMachineIsTakenAsItIs) {
  Put(At("new/machine.ini"), "[Drives]\r\nD=fixed\r\n");
  fs::create_directories(At("new/d"));
  const TargetFolder target(To("new"), false);
  EXPECT_EQ(OnlyDrive(target).letter, u'D');
  EXPECT_FALSE(fs::exists(At("new/C")));
  EXPECT_EQ(target.UsualGroupRoot(), "");
}

TEST_F(TargetFolderTest, ADiskIsDriveCAndNothingIsMadeThere) {
  fs::create_directories(At("disk/Windows"));
  fs::create_directories(At("disk/Users/Ann/Documents"));
  const auto before = Tree(At("disk"));
  const TargetFolder target(To("disk"), false);
  EXPECT_EQ(target.Taken().kind, Kind::WindowsDisk);
  EXPECT_EQ(OnlyDrive(target).letter, u'C');
  EXPECT_EQ(OnlyDrive(target).folder, At("disk"));
  EXPECT_EQ(target.UsualGroupRoot(), R"(C:\Users\Ann\Documents\Norvo Media\)");
  EXPECT_EQ(target.Registry().file, At("disk/Norvo/registry.reg"));
  EXPECT_EQ(target.Registry().machinePath, R"(C:\Norvo\registry.reg)");
  EXPECT_EQ(Tree(At("disk")), before);
}

TEST_F(TargetFolderTest, AnyFolderCanBeMadeAnyDrive) {
  fs::create_directories(At("drives/C"));
  for (const char* const name : {"drives", "absent"}) {
    const TargetFolder target(To(name, "d:"), false);
    EXPECT_EQ(target.Taken().kind, Kind::NamedDrive);
    EXPECT_EQ(OnlyDrive(target).letter, u'D');
    EXPECT_EQ(OnlyDrive(target).folder, At(name));
    EXPECT_TRUE(fs::is_directory(At(name)));
    EXPECT_EQ(target.UsualGroupRoot(), R"(D:\My Documents\Norvo Media\)");
    EXPECT_EQ(target.Registry().machinePath, R"(D:\Norvo\registry.reg)");
  }
  EXPECT_TRUE(fs::is_empty(At("absent")));
}

TEST_F(TargetFolderTest, ForADryRunAnEmptyMachineStandsForIt) {
  for (const char* const drive : {"", "D"}) {
    fs::path stead;
    {
      const TargetFolder target(To("new", drive), true);
      stead = OnlyDrive(target).folder;
      EXPECT_TRUE(fs::is_directory(stead));
      EXPECT_FALSE(fs::exists(At("new")));
      EXPECT_EQ(target.Taken().folder, At("new"));
    }
    EXPECT_FALSE(fs::exists(stead));
  }
  fs::create_directories(At("new/C"));
  EXPECT_EQ(OnlyDrive(TargetFolder(To("new"), true)).folder, At("new/C"));
}

TEST_F(TargetFolderTest, TheDiskThatWillTakeItTellsHowMuchItHasRoomFor) {
  const bool isTold = TargetFolder(To(""), true).FreeBytesAt(u"C:\\").has_value();
  for (const bool dryRun : {true, false}) {
    EXPECT_EQ(TargetFolder(To("some/new"), dryRun).FreeBytesAt(u"C:\\Music").has_value(), isTold);
    EXPECT_EQ(fs::exists(At("some")), !dryRun);
  }
  EXPECT_FALSE(TargetFolder(To("some/new"), false).FreeBytesAt(u"D:\\Music"));
}

TEST_F(TargetFolderTest, AnEmptyFolderStaysEmptyInADryRun) {
  fs::create_directories(At("empty"));
  EXPECT_EQ(TargetFolder(To("empty"), true).Taken().kind, Kind::Empty);
  EXPECT_TRUE(fs::is_empty(At("empty")));
}

TEST_F(TargetFolderTest, WhatCannotBeMadeAMachineIsRefusedWithTheReason) {
  constexpr const char* kInTheWay = "something else stands where it or its folder should";
  Put(At("file"), "");
  ExpectError(ErrorOf([this] { TargetFolder(To("file"), false); }), MoveFault::MachineNotMade,
              At("file").string(), kInTheWay);
  ExpectError(ErrorOf([this] { TargetFolder(To("file", "D"), false); }), MoveFault::MachineNotMade,
              At("file").string(), kInTheWay);
  for (const bool dryRun : {true, false}) {
    ExpectError(ErrorOf([&] { TargetFolder(To("file/new"), dryRun); }), MoveFault::MachineNotMade,
                At("file/new").string(), kInTheWay);
  }
}

TEST_F(TargetFolderTest, NothingIsMadeForWishesThatCannotBe) {
  FolderMove move = To("new");
  move.documents = R"(Q:\Documents)";
  ExpectError(ErrorOf([&] { TargetFolder(move, false); }), MoveFault::DocumentsNowhere,
              R"(Q:\Documents)", "Q:");
  EXPECT_FALSE(fs::exists(At("new")));
}

}  // namespace
}  // namespace norvo
