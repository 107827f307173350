#include "machines/FolderMove.h"

#include "machines/MachineFoldersTest.h"
#include "move/WatchedWork.h"
#include "support/ChildProcess.h"
#include "support/RefusedCalls.h"

namespace norvo {
namespace {

/// Moves between folders by the call that programs use.
class FolderMoveTest : public MachineFoldersTest {
 protected:
  FolderMoveTest() { PutDisk("disk"); }

  FolderMove Folders(const std::string& to) const {
    FolderMove folders;
    folders.from = At("disk");
    folders.to = At(to);
    return folders;
  }
  MoveResult Move(const std::string& to, WorkObserver& observer) const {
    return MovePlaylists(Folders(to), {}, observer);
  }
  MoveResult Move(const std::string& to) const {
    WorkObserver nobody;
    return Move(to, nobody);
  }
  static fs::path SongsOf(const fs::path& machine) {
    return machine / "C" / "My Documents" / "Norvo Media" / "Music";
  }
};

TEST_F(FolderMoveTest, MovesADiskWithoutWritingToIt) {
  const auto before = Tree(At("disk"));
  const MoveResult move = Move("new");
  EXPECT_TRUE(move.IsWhole());
  EXPECT_EQ(Tree(At("disk")), before);
  EXPECT_EQ(Get(SongsOf(At("new")) / "One.mp3"), "the first song");
  EXPECT_EQ(move.verification.checked, 8u);
  EXPECT_EQ(move.verification.found, 8u);
}

#ifdef __linux__

TEST_F(FolderMoveTest, WhereTimesCannotBeSetTheSongsComeAndTheirLostTimesAreTold) {
  const int result = ExitOfChild([this] {
    if (!RefuseCalls({{SYS_utimensat, EPERM}})) return kSkip;
    const MoveResult move = Move("new");
    EXPECT_TRUE(move.IsWhole());
    EXPECT_EQ(Get(SongsOf(At("new")) / "One.mp3"), "the first song");
    EXPECT_EQ(move.warnings.size(), move.songs.size());
    const WorkWarning& warning = move.warnings.at(0);
    EXPECT_EQ(warning.kind, WorkWarning::Kind::TimesLost);
    EXPECT_TEXT(warning.subject, move.songs.at(0).place);
    EXPECT_EQ(Utf8(warning.detail), "permission denied");
    return HasFailure() ? 1 : 0;
  });
  if (result == kSkip) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(result, 0);
}

#endif

TEST_F(FolderMoveTest, OfADiskOnlyTheNewMachinesLogIsKept) {
  MoveOptions options;
  options.log = true;
  WatchedWork heard;
  const MoveResult move = MovePlaylists(Folders("new"), options, heard);
  EXPECT_EQ(heard.logs, (Lines{"old: Z:\\Norvo\\VBLog.txt", "new: C:\\Norvo\\VBLog.txt"}));
  ASSERT_EQ(move.logs.size(), 1u);
  EXPECT_EQ(move.logs[0].side, MachineSide::New);
  EXPECT_EQ(move.logs[0].file.systemPath, At("new/C/Norvo/VBLog.txt").string());
  EXPECT_TRUE(fs::exists(move.logs[0].file.systemPath));
}

TEST_F(FolderMoveTest, LinkingADiskThatIsOnlyToBeReadIsRefused) {
  MoveOptions options;
  options.media = MediaMode::Link;
  WorkObserver nobody;
  ExpectError(ErrorOf([&] { return MovePlaylists(Folders("new"), options, nobody); }),
              MoveFault::LinkWritesToSource);
  EXPECT_FALSE(fs::exists(At("new")));
}

TEST_F(FolderMoveTest, FoldersInEachOtherAreRefusedBeforeAnythingIsWritten) {
  const auto before = Tree(At("disk"));
  ExpectError(ErrorOf([this] { return Move("disk/new"); }), MoveFault::FoldersOverlap,
              "the old machine's folder", "the new machine's folder");
  EXPECT_EQ(Tree(At("disk")), before);
}

TEST_F(FolderMoveTest, ADiskTakesThemInTheDocumentsOfItsUser) {
  fs::create_directories(At("new/Users/Ann/Documents"));
  const MoveResult move = Move("new");
  EXPECT_TRUE(move.IsWhole());
  EXPECT_EQ(Get(At("new/Users/Ann/Documents/Norvo Media/Music/One.mp3")), "the first song");
  EXPECT_TRUE(fs::exists(At("new/Norvo/registry.reg")));
  EXPECT_FALSE(fs::exists(At("new/C")));
  EXPECT_TRUE(Move("new").IsWhole());
}

TEST_F(FolderMoveTest, WhatTheFoldersWereTakenAsIsToldBeforeAnythingIsMoved) {
  FolderMove folders = Folders("new");
  folders.toDrive = "D";
  std::size_t told = 0;
  folders.onOpened = [&](const OpenedFolders& opened) {
    ++told;
    EXPECT_EQ(opened.from.kind, TakenFolder::Kind::OtherDisk);
    EXPECT_EQ(opened.to.kind, TakenFolder::Kind::NamedDrive);
    EXPECT_EQ(opened.to.letter, u'D');
    EXPECT_EQ(opened.registry.file, At("new/Norvo/registry.reg"));
    EXPECT_EQ(opened.registry.machinePath, "D:\\Norvo\\registry.reg");
    EXPECT_FALSE(fs::exists(opened.registry.file));
  };
  WorkObserver nobody;
  EXPECT_TRUE(MovePlaylists(folders, {}, nobody).IsWhole());
  EXPECT_EQ(told, 1u);
  EXPECT_EQ(Get(At("new/My Documents/Norvo Media/Music/One.mp3")), "the first song");
}

TEST_F(FolderMoveTest, AGroupRootThatTheNewMachineHasIsKeptAndTold) {
  fs::create_directories(At("new/Windows"));
  Move("new");
  FolderMove folders = Folders("new");
  folders.groupRoot = "C:\\Elsewhere";
  WorkObserver nobody;
  const MoveResult move = MovePlaylists(folders, {}, nobody);
  ASSERT_EQ(move.warnings.size(), 1u);
  EXPECT_EQ(move.warnings[0].kind, WorkWarning::Kind::GroupRootKept);
  EXPECT_FALSE(fs::exists(At("new/Elsewhere")));
}

TEST_F(FolderMoveTest, ADryRunWritesNothing) {
  MoveOptions options;
  options.dryRun = true;
  WorkObserver nobody;
  const auto before = Tree(At(""));
  const MoveResult planned = MovePlaylists(Folders("new"), options, nobody);
  EXPECT_EQ(Tree(At("")), before);
  EXPECT_EQ(PlaylistsIn(planned), PlaylistsIn(Move("new")));
}

TEST_F(FolderMoveTest, CancelledAtAnyMomentNothingIsTornAndTheNextMoveCompletesIt) {
  Move("sound");
  const auto all = Tree(At("sound"));
  const auto before = Tree(At("disk"));
  bool cancelled = true;
  std::size_t n = 0;
  while (cancelled) {
    WatchedWork heard(++n);
    const std::string to = "new" + std::to_string(n);
    const MoveResult move = Move(to, heard);
    cancelled = move.cancelled;
    EXPECT_EQ(LinesOf(move.warnings), Lines()) << n;
    if (fs::exists(At(to))) {
      for (const auto& [path, what] : Tree(At(to))) {
        // These grow with each step.
        if (path.ends_with("Restored.txt") || path.ends_with("registry.reg")) continue;
        ASSERT_TRUE(all.contains(path)) << n << ' ' << path;
        EXPECT_TRUE(all.at(path) == what) << n << ' ' << path;
      }
    }
    EXPECT_TRUE(Move(to).IsWhole()) << n;
    EXPECT_TRUE(Tree(At(to)) == all) << n;
  }
  EXPECT_GT(n, 12u);
  EXPECT_EQ(Tree(At("disk")), before);
}

}  // namespace
}  // namespace norvo
