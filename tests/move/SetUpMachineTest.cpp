#include "move/SetUpMachine.h"

#include "automation/Conversions.h"
#include "library/Library.h"
#include "model/PlaylistTypes.h"
#include "move/MoveError.h"
#include "move/MoveResult.h"
#include "move/ProductSettings.h"
#include "move/ReadPlaylist.h"
#include "services/Utility.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

/// The set-up on a machine in memory.
class SetUpMachineTest : public LibraryTest {
 protected:
  static constexpr StringView kGroupKey = u"C:\\My Documents\\Norvo Media\\KVs\\KVMediaPlayLists";

  SetUpMachineTest() { platform->Registry().AddKey(Hive::LocalMachine, u"SOFTWARE"); }

  SetupResult Run(const SetupWishes& wishes = {}) { return SetUpMachine(platform, wishes); }
  /// The step of the group's key.
  static SetupStep GroupStep(const SetupResult& result) {
    for (const SetupStep& step : result.steps) {
      if (step.kind == SetupStep::Kind::Key) return step;
    }
    return {};
  }
  /// The fault of a set-up that cannot be done.
  MoveFault FaultOf(const SetupWishes& wishes) {
    try {
      Run(wishes);
    } catch (const MoveError& error) {
      return error.Fault();
    }
    ADD_FAILURE() << "the set-up was done";
    return {};
  }
};

TEST_F(SetUpMachineTest, TheGroupKeyStandsInTheMachinesHive) {
  EXPECT_TRUE(GroupStep(Run()).written);
  EXPECT_TRUE(platform->Registry().HasKey(Hive::LocalMachine, kGroupKey));
  EXPECT_FALSE(GroupStep(Run()).written);
}

TEST_F(SetUpMachineTest, AnotherUsualGroupRootHoldsWithoutAWishAndIsNoWishItself) {
  SetupWishes wishes;
  wishes.usualGroupRoot = "C:\\Users\\Ann\\Norvo Media";
  EXPECT_EQ(GroupStep(Run(wishes)).path, u"C:\\Users\\Ann\\Norvo Media\\KVs\\KVMediaPlayLists");
  wishes.usualGroupRoot = "C:\\Elsewhere";
  const SetupResult again = Run(wishes);
  EXPECT_EQ(GroupStep(again).path, u"C:\\Users\\Ann\\Norvo Media\\KVs\\KVMediaPlayLists");
  EXPECT_TRUE(again.warnings.empty());
}

TEST_F(SetUpMachineTest, AWishedGroupRootGoesBeforeTheUsualOne) {
  SetupWishes wishes;
  wishes.groupRoot = "C:\\Wished";
  wishes.usualGroupRoot = "C:\\Usual";
  EXPECT_EQ(GroupStep(Run(wishes)).path, u"C:\\Wished\\KVs\\KVMediaPlayLists");
}

TEST_F(SetUpMachineTest, WhereTheMachinesHiveRefusesTheGroupKeyTheUsersTakesIt) {
  platform->Registry().RefuseTopKeys();
  const SetupStep step = GroupStep(Run());
  EXPECT_TRUE(step.written);
  EXPECT_EQ(step.hive, Hive::CurrentUser);
  EXPECT_EQ(step.path, kGroupKey);
  EXPECT_TRUE(platform->Registry().HasKey(Hive::CurrentUser, kGroupKey));
  EXPECT_EQ(GroupStep(Run()).hive, Hive::CurrentUser);
  EXPECT_FALSE(GroupStep(Run()).written);
}

TEST_F(SetUpMachineTest, WhereOnlyAnAdministratorMayWriteTheSettingsAreTheUsers) {
  platform->Registry().RefuseMachineWrites();
  const SetupResult result = Run();
  for (const SetupStep& step : result.steps) {
    if (step.kind == SetupStep::Kind::Value) {
      EXPECT_EQ(step.hive, Hive::CurrentUser);
    }
  }
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(result.warnings[0].kind, WorkWarning::Kind::SettingsOfUser);
  EXPECT_EQ(result.warnings[0].subject, kBaseKey);
  const ProductSettings settings = ReadProductSettings(*OpenLibrary(platform));
  EXPECT_EQ(settings.role, Utility::role::kSource);
  EXPECT_EQ(settings.groupRoot, u"C:\\My Documents\\Norvo Media\\");
  EXPECT_TRUE(Run().warnings.empty());
}

TEST_F(SetUpMachineTest, AProductFolderThatCannotBeMadeIsNoted) {
  platform->FailOn(u"CreateFolder", 3, error::kPermissionDenied);
  const SetupResult result = Run();
  ASSERT_EQ(result.warnings.size(), 1u);
  EXPECT_EQ(result.warnings[0].kind, WorkWarning::Kind::LogFolderNotMade);
  EXPECT_EQ(result.warnings[0].subject, u"C:\\Norvo\\");
  EXPECT_EQ(result.warnings[0].detail, u"Permission denied");
  EXPECT_TRUE(IsNotice(result.warnings[0]));
  EXPECT_TRUE(platform->Files().FileExists(u"C:\\My Documents\\Norvo Media\\SubNames.txt"));
}

TEST_F(SetUpMachineTest, AWriteThatFailsOnceIsNoRefusal) {
  platform->Registry().RefuseNextWrite();
  const SetupResult result = Run();
  EXPECT_TRUE(result.warnings.empty());
  for (const SetupStep& step : result.steps) {
    if (step.kind == SetupStep::Kind::Value) {
      EXPECT_EQ(step.hive, Hive::LocalMachine);
    }
  }
}

TEST_F(SetUpMachineTest, WhatTheUsersKeysWouldHideGoesAlong) {
  const auto set = [this](StringView below, StringView name, const RegistryValue& value) {
    platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + String(below), name, value);
  };
  set(u"", u"ProductFolder", String(u"C:\\Tools\\"));
  set(u"", u"ProductName", String(u"Player Tools"));
  set(u"\\KVS", u"mode", std::int32_t{2});
  platform->Registry().RefuseMachineWrites();
  SetupWishes wishes;
  wishes.groupRoot = "C:\\Wished\\";
  EXPECT_EQ(Run(wishes).warnings.size(), 1u);
  const auto opened = OpenLibrary(platform);
  EXPECT_EQ(ReadProductSettings(*opened).role, 2);
  EXPECT_EQ(ReadProductSettings(*opened).groupRoot, u"C:\\Wished\\");
  const auto valueOf = [this](StringView name) {
    return std::get<String>(
        platform->Registry().ValueOf(Hive::CurrentUser, kBaseKey, name).value());
  };
  EXPECT_EQ(valueOf(u"ProductFolder"), u"C:\\Tools\\");
  EXPECT_EQ(valueOf(u"ProductName"), u"Player Tools");
}

TEST_F(SetUpMachineTest, ARegistryThatTakesNothingEndsTheSetup) {
  platform->Registry().RefuseWrites();
  EXPECT_EQ(FaultOf({}), MoveFault::RegistryUnwritable);
}

TEST_F(SetUpMachineTest, WhatIsThereStaysAndIsWarnedOf) {
  Run();
  SetupWishes wishes;
  wishes.role = 1;
  wishes.groupRoot = "C:\\Elsewhere";
  const SetupResult result = Run(wishes);
  ASSERT_EQ(result.warnings.size(), 2u);
  EXPECT_EQ(result.warnings[0].kind, WorkWarning::Kind::RoleKept);
  EXPECT_EQ(result.warnings[0].subject, u"0");
  EXPECT_EQ(result.warnings[1].kind, WorkWarning::Kind::GroupRootKept);
  EXPECT_EQ(result.warnings[1].subject, u"C:\\My Documents\\Norvo Media\\");
}

TEST_F(SetUpMachineTest, AUsualGroupRootThatIsOnNoDriveMattersOnlyWhereNoOtherHolds) {
  SetupWishes wishes;
  wishes.usualGroupRoot = "\\\\server\\ann\\Norvo Media\\";
  EXPECT_EQ(FaultOf(wishes), MoveFault::UsualGroupRootNotFull);
  wishes.groupRoot = "C:\\Wished";
  EXPECT_EQ(GroupStep(Run(wishes)).path, u"C:\\Wished\\KVs\\KVMediaPlayLists");
  wishes.groupRoot.reset();
  const SetupResult again = Run(wishes);
  EXPECT_EQ(GroupStep(again).path, u"C:\\Wished\\KVs\\KVMediaPlayLists");
  EXPECT_TRUE(again.warnings.empty());
}

TEST_F(SetUpMachineTest, AUsualGroupRootThatOlderListsCannotHoldIsAtTheTopOfItsDriveInstead) {
  SetupWishes wishes;
  wishes.usualGroupRoot = "C:\\Users\\\xD0\x9E\xD0\xBB\xD1\x8F\\Norvo Media\\";
  EXPECT_EQ(GroupStep(Run(wishes)).path, u"C:\\Norvo Media\\KVs\\KVMediaPlayLists");
}

TEST_F(SetUpMachineTest, AGroupRootThatCannotBeMadeDoesNotHoldForLaterRuns) {
  SetupWishes wishes;
  wishes.groupRoot = "C:\\Refused";
  platform->FailOn(u"CreateFolder", 1, error::kPermissionDenied);
  EXPECT_EQ(FaultOf(wishes), MoveFault::FolderNotCreated);
  wishes.groupRoot = "C:\\Wished";
  const SetupResult result = Run(wishes);
  EXPECT_TRUE(result.warnings.empty());
  EXPECT_EQ(GroupStep(result).path, u"C:\\Wished\\KVs\\KVMediaPlayLists");
}

TEST_F(SetUpMachineTest, AGroupRootIsAFullPathOnADriveOfTheMachine) {
  SetupWishes wishes;
  wishes.groupRoot = "Media";
  EXPECT_EQ(FaultOf(wishes), MoveFault::GroupRootNotFull);
  wishes.groupRoot = "Q:\\Media";
  EXPECT_EQ(FaultOf(wishes), MoveFault::GroupRootNowhere);
}

/// A machine with a playlist of one song, and what it reads as.
class UnsetMachineTest : public SetUpMachineTest {
 protected:
  UnsetMachineTest() {
    platform->AddFile(u"C:\\a.mp3", "12345");
    platform->AddFile(u"C:\\Z\u00FCrich.m3u", "C:\\a.mp3\r\n");
  }

  std::int32_t CountOfPlayList() {
    const auto opened = OpenLibrary(platform);
    const ObjectRef playlist = opened->Create("PlayList");
    playlist->Let("PlayListType", playlist_type::kMmjbM3u);
    EXPECT_TRUE(ToBoolean(playlist->Call("ReadPlayList", kPath)));
    return ToInt32(playlist->Get("TotalSongs"));
  }

  static constexpr const char* kPath = "C:\\Z\xC3\xBCrich.m3u";
};

TEST_F(UnsetMachineTest, APlayListKeepsItsSongsOnlyWhenTheMachineIsSetUp) {
  EXPECT_EQ(CountOfPlayList(), 0);
  Run();
  EXPECT_EQ(CountOfPlayList(), 1);
}

TEST_F(UnsetMachineTest, ReadPlaylistNeedsNoSettings) {
  WorkObserver observer;
  const ReadResult read = ReadPlaylist(platform, kPath, playlist_type::kUnknown, {}, observer);
  ASSERT_EQ(read.entries.size(), 1u);
  EXPECT_TEXT(read.entries[0].source, u"C:\\a.mp3");
  EXPECT_TEXT(read.path, u"C:\\Z\u00FCrich.m3u");
}

}  // namespace
}  // namespace norvo
