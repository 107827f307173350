#include "move/FinalCount.h"

#include <gtest/gtest.h>

#include <functional>

#include "move/MemoryMove.h"

namespace norvo {
namespace {

/// Does something to the new machine before the count begins.
class Meddler final : public WorkObserver {
 public:
  explicit Meddler(std::function<void()> meddle) : meddle_(std::move(meddle)) {}
  void OnProgress(const WorkProgress& progress) override {
    if (progress.phase == WorkPhase::Counting && meddle_) std::exchange(meddle_, nullptr)();
  }

 private:
  std::function<void()> meddle_;
};

class FinalCountTest : public ::testing::Test {
 protected:
  void SetUp() override { machines.AddMix(); }

  MoveResult RunMeddled(std::function<void()> meddle) {
    Meddler meddler(std::move(meddle));
    return machines.Run(meddler);
  }

  MemoryMove machines;
  const String root = u"C:\\My Documents\\Norvo Media\\";
};

TEST_F(FinalCountTest, WhatIsRightCounts) {
  const MoveResult move = machines.Run();
  EXPECT_EQ(move.count.playlists, 1u);
  EXPECT_EQ(move.count.wholePlaylists, 1u);
  EXPECT_EQ(move.count.songs, 2u);
  EXPECT_EQ(move.count.rightSongs, 2u);
  EXPECT_EQ(LinesOf(move.warnings), Lines());
}

TEST_F(FinalCountTest, ASongOfAnotherContentIsTold) {
  const MoveResult move = RunMeddled(
      [&] { machines.to->AddFile(root + u"Music\\One.mp3", "The bong C:\\Music\\One.mp3"); });
  EXPECT_EQ(move.count.wholePlaylists, 0u);
  EXPECT_EQ(move.count.rightSongs, 1u);
  EXPECT_EQ(LinesOf(move.warnings).size(), 5u);  // in each of the playlist's forms
  EXPECT_FALSE(move.IsWhole());
}

TEST_F(FinalCountTest, ASongThatIsGoneIsTold) {
  const MoveResult move =
      RunMeddled([&] { machines.to->Files().RemoveFile(root + u"Music\\Two.mp3", true); });
  EXPECT_EQ(move.count.rightSongs, 1u);
  EXPECT_FALSE(move.IsWhole());
}

TEST_F(FinalCountTest, SongsInAnotherOrderAreTold) {
  const String list = root + u"PlayLists\\WinAmp\\Mix.m3u";
  const MoveResult move = RunMeddled([&] {
    machines.to->AddFile(list,
                         "C:\\My Documents\\Norvo Media\\Music\\Two.mp3\r\n"
                         "C:\\My Documents\\Norvo Media\\Music\\One.mp3\r\n");
  });
  EXPECT_EQ(LinesOf(move.warnings).size(), 2u);
  EXPECT_EQ(move.count.wholePlaylists, 0u);
}

TEST_F(FinalCountTest, APlaylistThatLacksASongIsTold) {
  const String list = root + u"PlayLists\\Modern Players\\Mix.m3u8";
  const MoveResult move = RunMeddled(
      [&] { machines.to->AddFile(list, "C:\\My Documents\\Norvo Media\\Music\\One.mp3\r\n"); });
  EXPECT_EQ(LinesOf(move.warnings),
            Lines{"new: CountedListWrong " + Utf8(list) + ", found 1, expected 2"});
}

TEST_F(FinalCountTest, WithoutSongsOnlyThePlaylistsCount) {
  MoveOptions options;
  options.media = MediaMode::None;
  const MoveResult move = machines.Run(options);
  EXPECT_EQ(move.count.wholePlaylists, 1u);
  EXPECT_EQ(move.count.songs, 0u);
  EXPECT_TRUE(move.IsWhole());
}

}  // namespace
}  // namespace norvo
