#include <chrono>

#include "machines/MachineFolder.h"
#include "move/MoveFixture.h"

namespace norvo {
namespace {

/// What stands on the new machine already, where songs would go.
class PlannerObstaclesTest : public MoveTest {};

TEST_F(PlannerObstaclesTest, AFileOfAnotherContentAtThePlaceStays) {
  const std::string song = AddMix("One.mp3");
  const fs::path there = NewPlace(kRoot + R"(Music\One.mp3)");
  WriteFile(there, "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(ReadFile(there), "of the user");
  ExpectMoved("Mix", {song});
  EXPECT_EQ(AdjustmentsOf(moved), Texts{"1 FileName: One.mp3 -> One (2).mp3"});
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "otherFile");
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "copied");
}

TEST_F(PlannerObstaclesTest, AFileOfTheSameSizeAndAnotherContentStaysToo) {
  const std::string song = AddMix("One.mp3");
  std::string other = ReadFile(OldPlace(song));
  other.back() = '!';
  WriteNew(kRoot + R"(Music\One.mp3)", other);
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\One.mp3)")), other);
  ExpectMoved("Mix", {song});
}

TEST_F(PlannerObstaclesTest, TheSameFileAtThePlaceIsNotCopiedAgain) {
  const std::string song = AddMix("One.mp3");
  const fs::path there = NewPlace(kRoot + R"(Music\ONE.mp3)");  // in another case
  WriteFile(there, ReadFile(OldPlace(song)));
  const auto time = fs::last_write_time(there) - std::chrono::hours(1);
  fs::last_write_time(there, time);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "alreadyThere");
  EXPECT_EQ(fs::last_write_time(there), time);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"ONE.mp3"});
  EXPECT_EQ(AdjustmentsOf(moved), Texts());
}

TEST_F(PlannerObstaclesTest, AFolderAtThePlaceIsGivenWay) {
  const std::string song = AddMix("One.mp3");
  WriteNew(kRoot + R"(Music\One.mp3\inside.txt)", "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", {song});
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"One (2).mp3", "One.mp3/inside.txt"}));
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "folderThere");
}

TEST_F(PlannerObstaclesTest, AFileWhereAFolderIsNeededIsGivenWay) {
  const std::string song = AddMix("One.mp3", {"T", "Ann", "Best"});
  WriteNew(kRoot + R"(Music\Ann)", "of the user");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {song});
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"Ann", "Ann (2)/Best (2)/One.mp3"}));
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\Ann)")), "of the user");
}

TEST_F(PlannerObstaclesTest, ALinkThatLeadsNowhereIsGivenWay) {
  const std::string song = AddMix("One.mp3", {"T", "Ann", "Best"});
  const fs::path link = NewPlace(kRoot + R"(Music\Ann)");
  fs::create_directories(link.parent_path());
  fs::create_symlink("nowhere", link);
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {song});
  EXPECT_TRUE(fs::is_regular_file(NewPlace(kRoot + R"(Music\Ann (2)\Best (2)\One.mp3)")));
}

TEST_F(PlannerObstaclesTest, ASongIsNoFolderOfAnotherSong) {
  AddSong(R"(C:\Music\x.mp3)");
  AddSong(R"(C:\Music\One.mp3)", {"T", "x.mp3", ""});
  const References songs{R"(C:\Music\x.mp3)", R"(C:\Music\One.mp3)"};
  WriteOld(R"(C:\Music\A.m3u)", M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("A", songs);
  // And the other way round: the folder is there first.
  fs::remove_all(New());
  WriteOld(R"(C:\Music\A.m3u)", M3u({songs[1], songs[0]}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("A", {songs[1], songs[0]});
}

TEST_F(PlannerObstaclesTest, WhereNoFolderCanBeTheSongIsLeftOutAndToldWhy) {
  AddMix("One.mp3", {"T", "Ann", ""});
  WriteNew(kRoot + "Music", "of the user");
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, R"(C:\Music\One.mp3: the new machine has no place for it: a file )"
                                 R"(stands where one of the folders of )" +
                                     kRoot + R"(Music\One.mp3 should be)"))
      << outcome.err;
  EXPECT_EQ(ReadFile(NewPlace(kRoot + "Music")), "of the user");
}

TEST_F(PlannerObstaclesTest, AGroupRootThatPlaylistsCannotTellLeavesTheSongsOut) {
  AddMix("One.mp3");
  fs::create_directories(NewPlace("C:\\"));
  ASSERT_EQ(RunProgram({"init", "--machine", New()}).code, 0);
  // No program of ours takes such a wish; it may have been noted by another.
  ASSERT_TRUE(OpenMachineFolder(New())->Registry().Write(
      Hive::LocalMachine, u"SOFTWARE\\Norvo\\Migration\\KVS\\KVMediaPlayLists", u"SubGroupRootName",
      String(u"C:\\東京\\")));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("leftOut"),
            Texts{R"(C:\Music\One.mp3: the new machine has no place for it: see that the folder )"
                  "for music, C:\\東京\\, has a name of plain letters"});
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "leftOut");
  EXPECT_EQ(moved.at("media")[0].at("place"), "");
  EXPECT_FALSE(fs::exists(NewPlace("C:\\東京\\Music")));
}

TEST_F(PlannerObstaclesTest, SubNamesThatLeadOutOfTheGroupRootAreNotFollowed) {
  AddMix("One.mp3");
  fs::create_directories(NewPlace("C:\\"));
  ASSERT_EQ(RunProgram({"init", "--machine", New()}).code, 0);
  WriteNew(kRoot + "SubNames.txt",
           "[PlayListStrings]\r\nSzID004=..\\..\\Windows\r\nszID005=PlayLists\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "leftOut");
  EXPECT_FALSE(fs::exists(NewPlace("C:\\Windows")));
}

TEST_F(PlannerObstaclesTest, AnotherFileAtTheOldAddressDoesNotLendItsName) {
  AddSong(R"(C:\A\One.mp3)");
  AddSong(R"(C:\B\One.mp3)");
  const References songs{R"(C:\A\One.mp3)", R"(C:\B\One.mp3)"};
  WriteOld(kMix, M3u(songs));
  WriteNew(R"(C:\A\ONE.mp3)", "of the user");
  WriteNew(R"(C:\B\ONE.mp3)", "of the user too");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectLeadsTo(ReferencesIn(NativePath(kPlayers[2], "Mix"))[1], songs[1]);
  EXPECT_EQ(ReadFile(NewPlace(R"(C:\A\ONE.mp3)")), "of the user");
  // The first one's name differs in case alone, which leads to the song all the same.
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[2], "Mix"))[0], kRoot + R"(Music\ONE.mp3)");
  EXPECT_EQ(AdjustmentsOf(moved),
            (Texts{"2 FileName: One.mp3 -> One (2).mp3",
                   "2 SourceURL: C:\\B\\One.mp3 -> " + kRoot + "Music\\One (2).mp3"}));
  EXPECT_EQ(moved.at("adjustments")[1].at("reasonCode"), "oldAddressTaken");
}

TEST_F(PlannerObstaclesTest, WhatIsNoFileAndHasTheNameOfANativePlaylistIsGivenWay) {
  AddSong(R"(C:\Music\One.mp3)");
  fs::create_directories(NewPlace(NativePath(kPlayers[0], "Folder")));
  fs::create_directories(NewPlace(NativePath(kPlayers[3], "Link")).parent_path());
  fs::create_symlink("nowhere", NewPlace(NativePath(kPlayers[3], "Link")));
  fs::create_directories(NewPlace(NativePath(kPlayers[1], "Twice1")));
  for (const char* const path : {"Folder.m3u", "Link.m3u", "a/Twice.m3u", "b/Twice.m3u"}) {
    WriteOld("C:\\Music\\" + std::string(path), M3u({R"(C:\Music\One.mp3)"}));
  }
  const auto planned = Moved({"--dry-run"});
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  for (const char* const name : {"Folder 2", "Link 2", "Twice 2", "Twice 21"}) {
    ExpectMoved(name, {R"(C:\Music\One.mp3)"});
  }
  ASSERT_EQ(moved.at("adjustments").size(), 4u);
  EXPECT_EQ(moved.at("adjustments"), planned.at("adjustments"));
  for (const auto& row : moved.at("adjustments")) {
    EXPECT_EQ(row.at("key"), "OriginalFileName");
    EXPECT_EQ(row.at("reasonCode"), "nativeBlocked");
  }
  EXPECT_TRUE(fs::is_directory(NewPlace(NativePath(kPlayers[0], "Folder"))));
  EXPECT_TRUE(fs::is_symlink(NewPlace(NativePath(kPlayers[3], "Link"))));
}

}  // namespace
}  // namespace norvo
