#include "move/SongSpace.h"

#include "move/MemoryMove.h"
#include "move/MoveFaults.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Moves between machines in memory, of which the new one says how much it has room for.
class SongSpaceTest : public ::testing::Test {
 protected:
  SongSpaceTest() { machines.AddMix(); }

  /// Of all songs of the mix.
  std::uint64_t Needed() {
    const Contents songs = ContentsOf(*machines.from);
    return songs.at("C:\\Music\\One.mp3").size() + songs.at("C:\\Music\\Two.mp3").size();
  }
  MoveResult MoveWith(std::optional<std::uint64_t> free, const MoveOptions& options = {},
                      const std::string& root = {}) {
    MoveMachines both{machines.from, machines.to, nullptr, nullptr, {}, root};
    both.freeBytes = [this, free](StringView path) {
      asked.push_back(Utf8(path));
      return free;
    };
    WorkObserver nobody;
    return MovePlaylists(both, options, nobody);
  }
  MoveError ErrorWith(std::uint64_t free, const MoveOptions& options = {}) {
    return ErrorOf([&] { return MoveWith(free, options); });
  }

  MemoryMove machines;
  Lines asked;
};

TEST_F(SongSpaceTest, SongsThatJustFitAreMoved) {
  EXPECT_TRUE(MoveWith(Needed()).IsWhole());
  EXPECT_EQ(asked, (Lines{kNewRoot, kNewRoot}));
}

TEST_F(SongSpaceTest, OneByteLessEndsTheMoveBeforeAnythingIsWritten) {
  const MoveError error = ErrorWith(Needed() - 1);
  ExpectError(error, MoveFault::SpaceMissing, "C:");
  EXPECT_EQ(error.Shortage().needed, Needed());
  EXPECT_EQ(error.Shortage().free, Needed() - 1);
  EXPECT_EQ(WritesOf(*machines.to), Lines());
}

TEST_F(SongSpaceTest, ADryRunEndsLikewise) {
  MoveOptions options;
  options.dryRun = true;
  ExpectError(ErrorWith(Needed() - 1, options), MoveFault::SpaceMissing, "C:");
  EXPECT_TRUE(MoveWith(Needed(), options).IsWhole());
  EXPECT_EQ(WritesOf(*machines.to), Lines());
}

TEST_F(SongSpaceTest, SongsThatAreThereNeedNothing) {
  ASSERT_TRUE(machines.Run().IsWhole());
  EXPECT_TRUE(MoveWith(0).IsWhole());
  machines.AddSong(u"C:\\Music\\Three.mp3");
  machines.AddPlaylist(u"C:\\Music\\Later.m3u", {"Three.mp3", "One.mp3"});
  const std::size_t more = ContentsOf(*machines.from).at("C:\\Music\\Three.mp3").size();
  const Contents before = ContentsOf(*machines.to);
  const MoveError error = ErrorWith(more - 1);
  // The group root is kept whatever is wished for.
  ExpectError(error, MoveFault::SpaceMissing, "C:", kNewRoot);
  EXPECT_EQ(error.Shortage().needed, more);
  EXPECT_EQ(ContentsOf(*machines.to), before);
  EXPECT_TRUE(MoveWith(more).IsWhole());
}

TEST_F(SongSpaceTest, SongsOfAMachineThatHasLostItsSettingsAreFoundByThePlan) {
  ASSERT_TRUE(machines.Run().IsWhole());
  const auto anew = std::make_shared<MemoryPlatform>();
  for (const auto& [path, bytes] : ContentsOf(*machines.to)) {
    if (path.ends_with(".mp3")) anew->AddFile(FromUtf8Lossy(path), bytes);
  }
  machines.to = anew;
  EXPECT_TRUE(MoveWith(0).IsWhole());
}

TEST_F(SongSpaceTest, TheGroupRootThatIsWishedForIsAskedAbout) {
  machines.to->AddDrive(u'D', DriveType::Fixed);
  ExpectError(ErrorOf([&] { return MoveWith(1, {}, "D:\\Music"); }), MoveFault::SpaceMissing, "D:");
  EXPECT_EQ(asked, (Lines{"D:\\Music\\"}));
}

TEST_F(SongSpaceTest, WhereNobodyCountsOrNothingIsCopiedTheMoveGoesOn) {
  EXPECT_TRUE(MoveWith(std::nullopt).IsWhole());
  for (const MediaMode media : {MediaMode::Link, MediaMode::None}) {
    machines.to = std::make_shared<MemoryPlatform>();
    asked.clear();
    MoveOptions options;
    options.media = media;
    EXPECT_FALSE(MoveWith(0, options).playlists.empty());
    EXPECT_EQ(asked, Lines());
  }
}

}  // namespace
}  // namespace norvo
