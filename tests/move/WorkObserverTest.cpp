#include "move/WorkObserver.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "move/WatchedWork.h"

namespace norvo {
namespace {

using Phase = WorkPhase;

/// What the observer of a move hears.
class WorkObserverTest : public ::testing::Test {
 protected:
  WorkObserverTest() {
    machines.AddMix();
    machines.AddWeb();
  }

  MoveResult Run(const MoveOptions& options = {}) { return machines.Run(heard, options); }
  static Lines Sorted(Lines lines) {
    std::sort(lines.begin(), lines.end());
    return lines;
  }
  static Lines LinesOfPlaylists(const MoveResult& move) {
    Lines lines;
    for (const MovedPlaylist& playlist : move.playlists) lines.push_back(LineOf(playlist));
    return lines;
  }

  MemoryMove machines;
  WatchedWork heard;
};

TEST_F(WorkObserverTest, ThePhasesComeInOrderEachOnce) {
  Run();
  EXPECT_EQ(heard.Phases(),
            (std::vector<Phase>{Phase::TakingStock, Phase::Scanning, Phase::Collecting,
                                Phase::Checking, Phase::ReadingTags, Phase::Planning,
                                Phase::PlanningSongs, Phase::BringingSongs, Phase::Restoring,
                                Phase::Verifying, Phase::Counting}));
}

TEST_F(WorkObserverTest, ADryRunBringsNoSongs) {
  MoveOptions options;
  options.dryRun = true;
  Run(options);
  EXPECT_EQ(heard.StepsOf(Phase::BringingSongs).size(), 0u);
  EXPECT_EQ(heard.StepsOf(Phase::Restoring).size(), 2u);
}

TEST_F(WorkObserverTest, TheFilesOfAPhaseAreCountedFromOneToTheLast) {
  Run();
  struct Row {
    Phase phase;
    Lines current;
  };
  const Lines playlists = {"C:\\Music\\Mix.m3u", "C:\\Music\\Web.pls"};
  const Lines songs = {"C:\\Music\\One.mp3", "C:\\Music\\Two.mp3"};
  const Lines carried = {"C:\\My Documents\\Norvo PlayLists\\Mix.ini",
                         "C:\\My Documents\\Norvo PlayLists\\Web.ini"};
  for (const Row& row : {Row{Phase::Collecting, playlists}, Row{Phase::Checking, playlists},
                         Row{Phase::Planning, playlists}, Row{Phase::PlanningSongs, songs},
                         Row{Phase::Restoring, carried}, Row{Phase::Verifying, playlists}}) {
    const std::vector<WatchedWork::Step> steps = heard.StepsOf(row.phase);
    ASSERT_EQ(steps.size(), row.current.size()) << static_cast<int>(row.phase);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      EXPECT_EQ(steps[i].progress.position, i + 1) << static_cast<int>(row.phase);
      EXPECT_EQ(steps[i].progress.count, steps.size()) << static_cast<int>(row.phase);
      EXPECT_EQ(steps[i].current, row.current[i]) << static_cast<int>(row.phase);
      EXPECT_EQ(steps[i].progress.bytesTotal, 0) << static_cast<int>(row.phase);
    }
  }
}

TEST_F(WorkObserverTest, WhileScanningTheFoldersAreCountedAndTheirNumberIsNotKnown) {
  Run();
  const std::vector<WatchedWork::Step> steps = heard.StepsOf(Phase::Scanning);
  ASSERT_GE(steps.size(), 2u);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    EXPECT_EQ(steps[i].progress.position, i + 1);
    EXPECT_EQ(steps[i].progress.count, 0u);
  }
  EXPECT_EQ(steps[0].current, "C:\\");
  EXPECT_EQ(steps[1].current, "C:\\Music");
}

TEST_F(WorkObserverTest, TheBytesOfTheSongsRiseToTheirTotal) {
  machines.from->AddFile(u"C:\\Music\\Two.mp3", std::string(600 * 1024, '2'));
  const MoveResult move = Run();
  const double total = move.songs[0].size + move.songs[1].size;
  const std::vector<WatchedWork::Step> steps = heard.StepsOf(Phase::BringingSongs);
  ASSERT_GE(steps.size(), 4u);
  double before = 0;
  for (const WatchedWork::Step& step : steps) {
    EXPECT_GE(step.progress.bytesDone, before);
    EXPECT_EQ(step.progress.bytesTotal, total);
    EXPECT_GE(step.progress.position, 1u);
    EXPECT_LE(step.progress.position, step.progress.count);
    EXPECT_EQ(step.progress.count, 2u);
    before = step.progress.bytesDone;
  }
  EXPECT_EQ(before, total);
}

TEST_F(WorkObserverTest, EachSongAndPlaylistIsToldOnceInItsFinalState) {
  machines.from->Files().Deny(u"C:\\Music\\Two.mp3");
  machines.AddPlaylist(u"C:\\Music\\Gone.m3u", {"Gone.mp3"});
  const MoveResult move = Run();
  EXPECT_EQ(Sorted(heard.songs), Sorted(SongsIn(move)));
  EXPECT_EQ(heard.playlists, LinesOfPlaylists(move));
  EXPECT_EQ(move.songs[1].state, MovedSong::State::LeftOut);
}

TEST_F(WorkObserverTest, EachIsToldOnceAlsoWhenAllIsThereAlready) {
  machines.Run();
  const MoveResult move = Run();
  EXPECT_EQ(heard.songs, SongsIn(move));
  EXPECT_EQ(heard.playlists, LinesOfPlaylists(move));
  EXPECT_EQ(heard.StepsOf(Phase::BringingSongs).size(), 0u);
}

TEST_F(WorkObserverTest, EachIsToldOnceAlsoWithoutMedia) {
  MoveOptions options;
  options.media = MediaMode::None;
  const MoveResult move = Run(options);
  EXPECT_EQ(heard.songs, SongsIn(move));
  EXPECT_EQ(heard.playlists, LinesOfPlaylists(move));
}

TEST_F(WorkObserverTest, EachWarningIsToldAsTheResultHasIt) {
  machines.from->Files().Deny(u"C:\\Music\\Two.mp3");
  machines.from->AddFolder(u"C:\\Private");
  machines.from->Files().Deny(u"C:\\Private");
  MoveOptions options;
  options.media = MediaMode::None;
  const MoveResult move = Run(options);
  EXPECT_EQ(heard.warnings, LinesOf(move.warnings));
  ASSERT_FALSE(heard.warnings.empty());
  EXPECT_EQ(heard.warnings.front(), "old: Library HelperMan::GetAllPlayLists -> Permission denied");
  EXPECT_EQ(move.warnings.front().warning.kind, WarningKind::FolderNotListed);
  EXPECT_TEXT(move.warnings.front().warning.path, u"C:\\Private");
}

TEST_F(WorkObserverTest, EachLogIsToldWhenItBegins) {
  MoveOptions options;
  options.log = true;
  Run(options);
  EXPECT_EQ(heard.logs, (Lines{"old: C:\\Norvo\\VBLog.txt", "new: C:\\Norvo\\VBLog.txt"}));
}

TEST_F(WorkObserverTest, ADryRunKeepsTheLogOfTheOldMachineAlone) {
  MoveOptions options;
  options.log = options.dryRun = true;
  Run(options);
  EXPECT_EQ(heard.logs, Lines{"old: C:\\Norvo\\VBLog.txt"});
  EXPECT_FALSE(machines.to->HasFile(u"C:\\Norvo\\VBLog.txt"));
}

TEST_F(WorkObserverTest, ItIsAskedBeforeEachStepWhetherToGoOn) {
  Run();
  EXPECT_EQ(heard.questions, heard.steps.size());
}

TEST_F(WorkObserverTest, AnObserverThatDoesNothingGetsTheSameMove) {
  MemoryMove others;
  others.AddMix();
  others.AddWeb();
  WorkObserver nobody;
  EXPECT_EQ(PlaylistsIn(others.Run(nobody)), PlaylistsIn(Run()));
  EXPECT_EQ(ContentsOf(*others.to), ContentsOf(*machines.to));
}

}  // namespace
}  // namespace norvo
