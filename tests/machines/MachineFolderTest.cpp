#include "machines/MachineFolder.h"

#include <sys/stat.h>

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

TEST_F(MachineFolderTest, OnlyWhatCannotBeADiskIsAMachine) {
  PutDisk("drives/C");
  PutDisk("made/C");
  Put(At("made/registry.reg"), "");
  Put(At("made/report.html"), "");
  fs::create_directories(At("made/A"));
  PutDisk("looked at/C");
  for (const char* const name : {"desktop.ini", "Thumbs.db", "THUMBS.DB"}) {
    Put(At("looked at") / name, "");
  }
  Put(At("nodrive/registry.reg"), "");
  Put(At("nodrive/C"), "a file");
  PutDisk("more/C");
  Put(At("more/autoexec.bat"), "");
  fs::create_directories(At("letters/A"));
  fs::create_directories(At("letters/C"));
  fs::create_directories(At("noC/D"));
  Put(At("described/machine.ini"), "[shellfolders]\r\n5=C:\\Mine\r\n");
  Put(At("other/machine.ini"), "[Server]\r\n");
  EXPECT_EQ(SignOfMachine(At("drives")), MachineSign::DrivesAlone);
  EXPECT_EQ(SignOfMachine(At("looked at")), MachineSign::DrivesAlone);
  EXPECT_EQ(SignOfMachine(At("made")), MachineSign::Registry);
  EXPECT_EQ(SignOfMachine(At("described")), MachineSign::Settings);
  for (const char* const name : {"more", "letters", "noC", "nodrive", "other"}) {
    EXPECT_EQ(SignOfMachine(At(name)), MachineSign::None) << name;
  }
}

TEST_F(MachineFolderTest, SettingsThatAreNoFileOfAFewLinesAreNamedAndNotWaitedFor) {
  const auto expectRefused = [this](const std::string& folder, const std::string& reason) {
    const std::string settings = At(folder + "/machine.ini").string();
    ExpectError(ErrorOf([&] { return HasMachineSettings(At(folder)); }), MoveFault::SettingsNotRead,
                settings, reason);
    ExpectError(ErrorOf([&] { return SignOfMachine(At(folder)); }), MoveFault::SettingsNotRead,
                settings, reason);
  };
  for (const char* const folder : {"pipe/C", "device/C", "sparse/C", "folder/C/machine.ini"}) {
    fs::create_directories(At(folder));
  }
  ASSERT_EQ(::mkfifo(At("pipe/machine.ini").c_str(), 0666), 0);
  expectRefused("pipe", "it is no file");
  fs::create_symlink("/dev/zero", At("device/machine.ini"));
  expectRefused("device", "it is no file");
  Put(At("sparse/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  fs::resize_file(At("sparse/machine.ini"), std::uintmax_t{1} << 40);
  expectRefused("sparse", "it is too large for such a file");
  expectRefused("folder/C", "it is no file");
}

TEST_F(MachineFolderTest, SettingsOfAMebibyteAreTheLargest) {
  fs::create_directories(At("large/C"));
  Put(At("large/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  fs::resize_file(At("large/machine.ini"), 1024 * 1024);
  EXPECT_TRUE(HasMachineSettings(At("large")));
  fs::resize_file(At("large/machine.ini"), 1024 * 1024 + 1);
  ExpectError(ErrorOf([&] { return HasMachineSettings(At("large")); }), MoveFault::SettingsNotRead,
              At("large/machine.ini").string(), "it is too large for such a file");
}

TEST_F(MachineFolderTest, WhatCannotBeListedIsToldWithTheReason) {
  Put(At("file"), "");
  ExpectError(ErrorOf([this] { return SignOfMachine(At("file")); }), MoveFault::NotListed,
              At("file").string(), "something else stands where it or its folder should");
}

}  // namespace
}  // namespace norvo
