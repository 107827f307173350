#include "move/MoveError.h"

#include "automation/RunTimeError.h"
#include "move/CollectPlaylists.h"
#include "move/MemoryMove.h"
#include "move/MoveFaults.h"
#include "move/RestorePlaylists.h"
#include "move/SetUpMachine.h"
#include "move/VerifyPlaylists.h"

namespace norvo {
namespace {

/// What ends a call on a machine in memory. Of machines in folders see tests/machines.
class MoveErrorTest : public ::testing::Test {
 protected:
  MoveErrorTest() { machines.AddMix(); }

  void SetGroupRoot(const std::shared_ptr<MemoryPlatform>& machine, StringView root) {
    machine->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                         u"SubGroupRootName", String(root));
  }
  void SetRole(std::int32_t role) {
    machines.from->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS", u"mode", role);
  }
  MoveError ErrorOfMove() {
    return ErrorOf([this] { return machines.Run(); });
  }
  MoveError ErrorOfSetup(const std::string& groupRoot) {
    SetupWishes wishes;
    wishes.groupRoot = groupRoot;
    return ErrorOf([&] { return SetUpMachine(machines.from, wishes); });
  }
  MoveError ErrorOfScan() {
    return ErrorOf([this] { return ScanPlaylists(machines.from, {}, nobody); });
  }

  MemoryMove machines;
  WorkObserver nobody;
};

TEST_F(MoveErrorTest, AWishedGroupRootIsAFullPath) {
  for (const char* const root : {"", "Media", "\\Media", "C:", "C:\\", "C:Media", "\xFF:\\Media"}) {
    ExpectError(ErrorOfSetup(root), MoveFault::GroupRootNotFull, root);
  }
  EXPECT_EQ(WritesOf(*machines.from), Lines());
}

TEST_F(MoveErrorTest, AWishedGroupRootCanHoldSongsThatListsCanTell) {
  const std::string longest = "C:\\" + std::string(156, 'x');
  for (const std::string& root :
       {std::string("C:\\con\\Media"), std::string("C:\\ Media"), std::string("C:\\Me|dia"),
        std::string("C:\\\xCE\xA9"), longest + 'x'}) {
    ExpectError(ErrorOfSetup(root), MoveFault::GroupRootUnfit, root + '\\');
  }
  EXPECT_EQ(WritesOf(*machines.from), Lines());
  SetupWishes wishes;
  wishes.groupRoot = longest;
  EXPECT_TRUE(SetUpMachine(machines.from, wishes).warnings.empty());
}

TEST_F(MoveErrorTest, AGroupRootLiesOnADriveOfTheMachine) {
  ExpectError(ErrorOfSetup("Q:\\Media"), MoveFault::GroupRootNowhere, "Q:\\Media\\", "Q:");
  SetGroupRoot(machines.to, u"Q:\\Media\\");
  ExpectError(ErrorOfMove(), MoveFault::GroupRootNowhere, "Q:\\Media\\", "Q:");
}

TEST_F(MoveErrorTest, TheGroupRootOfAMachineIsAFullPath) {
  SetGroupRoot(machines.to, u"Media");
  ExpectError(ErrorOfMove(), MoveFault::GroupRootUnusable, "Media");
}

TEST_F(MoveErrorTest, ARegistryThatTakesNothingEndsTheMove) {
  machines.to->Registry().RefuseWrites();
  ExpectError(ErrorOfMove(), MoveFault::RegistryUnwritable);
}

TEST_F(MoveErrorTest, AFolderThatCannotBeCreatedIsNamedWithTheReason) {
  machines.to->FailOn(u"CreateFolder", 2, error::kPermissionDenied);
  ExpectError(ErrorOfMove(), MoveFault::FolderNotCreated, "C:\\My Documents\\Norvo Media\\",
              "Permission denied");
}

TEST_F(MoveErrorTest, AFileThatCannotBeWrittenIsNamedWithTheReason) {
  machines.to->FailOn(u"Settings.Write", 1, error::kDiskFull);
  ExpectError(ErrorOfMove(), MoveFault::FileNotWritten,
              "C:\\My Documents\\Norvo Media\\SubNames.txt", "Disk full");
}

TEST_F(MoveErrorTest, AMachineWithoutSettingsIsNeitherScannedNorRestored) {
  ExpectError(ErrorOfScan(), MoveFault::RoleAndGroupRootMissing);
  ExpectError(ErrorOf([this] { return CollectPlaylists(machines.from, {}, nobody); }),
              MoveFault::RoleAndGroupRootMissing);
  ExpectError(ErrorOf([this] { return RestorePlaylists(machines.from, {}, nobody); }),
              MoveFault::RoleAndGroupRootMissing);
  EXPECT_EQ(WritesOf(*machines.from), Lines());
}

TEST_F(MoveErrorTest, EachMissingSettingIsTold) {
  SetRole(0);
  ExpectError(ErrorOfScan(), MoveFault::GroupRootMissing);
  machines = {};
  SetGroupRoot(machines.from, kGroupRoot);
  ExpectError(ErrorOfScan(), MoveFault::RoleMissing);
}

TEST_F(MoveErrorTest, AMachineThatIsNeitherSourceNorDestinationTakesNoPart) {
  machines.from->ConfigureProduct();
  SetRole(3);
  ExpectError(ErrorOfScan(), MoveFault::RoleTakesNoPart);
  ExpectError(ErrorOfMove(), MoveFault::RoleTakesNoPart);
}

TEST_F(MoveErrorTest, AListThatCannotBeWrittenEndsTheScanWithTheLastWarning) {
  machines.from->ConfigureProduct();
  machines.from->FailOn(u"Settings.Write", 1, error::kDiskFull);
  ExpectError(ErrorOfScan(), MoveFault::ScanFailed, "C:\\My Documents\\Norvo Media\\KVs\\",
              "HelperMan::GetAllPlayLists -> Exception Thrown: Disk full");
  machines.from->FailOn(u"Settings.Write", 1, error::kDiskFull);
  ExpectError(ErrorOfMove(), MoveFault::ScanFailed, "C:\\My Documents\\Norvo Media\\KVs\\",
              "HelperMan::GetAllPlayLists -> Exception Thrown: Disk full");
}

TEST_F(MoveErrorTest, FolderNamesThatCannotBeReadEndTheMoveBeforeAllGoesElsewhere) {
  machines.AddMix();
  static_cast<void>(machines.Run());
  const Contents before = ContentsOf(*machines.to);
  machines.to->Log().Clear();
  std::size_t reads = 0;
  do {
    machines.to->FailOn(u"Settings.Read", ++reads, error::kDeviceInputOutput);
    try {
      static_cast<void>(machines.Run());
    } catch (const MoveError& error) {
      ExpectError(error, MoveFault::FileNotRead, "C:\\My Documents\\Norvo Media\\SubNames.txt");
      break;
    } catch (const RunTimeError&) {
      // Another file's.
    }
  } while (machines.to->Log().HasFailed());
  EXPECT_TRUE(machines.to->Log().HasFailed()) << "no read of that file ended a move";
  machines.to->Log().StopFailing();
  EXPECT_EQ(ContentsOf(*machines.to), before);
}

TEST_F(MoveErrorTest, AMachineWithoutRestoredPlaylistsHasNoneToVerify) {
  const auto errorOfVerify = [this] {
    return ErrorOf([this] { return VerifyPlaylists(machines.to, {}, {}, nobody); });
  };
  ExpectError(errorOfVerify(), MoveFault::NoPlaylistFolder);
  machines.to->ConfigureProduct();
  ExpectError(errorOfVerify(), MoveFault::NoPlaylistFolder,
              "C:\\My Documents\\Norvo Media\\PlayLists\\");
}

TEST_F(MoveErrorTest, ANewMachineWithoutADocumentsFolderCannotTakeAPlaylist) {
  machines.to->Shell().SetFolder(ShellFolders::kDocuments, {});
  ExpectError(ErrorOfMove(), MoveFault::NoDocumentsFolder);
}

TEST_F(MoveErrorTest, ItSaysWhatIsWrongInEnglish) {
  EXPECT_STREQ(MoveError(MoveFault::NoFreeLetter, "old").what(), "old has no free drive letter");
  EXPECT_STREQ(MoveError(MoveFault::FoldersOverlap, "one", "two").what(),
               "one lies in, or around, two");
  EXPECT_STREQ(MoveError(MoveFault::FileNotWritten, "C:\\a.ini", "Disk full").what(),
               "C:\\a.ini cannot be written: Disk full");
  for (int fault = 0; fault <= static_cast<int>(MoveFault::NoDriveFolder); ++fault) {
    EXPECT_STRNE(MoveError(static_cast<MoveFault>(fault)).what(), "") << fault;
  }
}

}  // namespace
}  // namespace norvo
