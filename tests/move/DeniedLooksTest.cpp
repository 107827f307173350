#include <gtest/gtest.h>

#include "move/MemoryMove.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Brings nothing, since the system denies a look at all files with one ending.
class BlindPlacer final : public MediaPlacer {
 public:
  explicit BlindPlacer(StringView ending) : ending_(ending) {}

  void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode, PlaceListener& listener) override {
    for (std::size_t i = 0; i < jobs.size(); ++i) {
      listener.OnPlaced(i, {PlaceResult::Failed, PlaceFailure::TargetUnwritable, u"denied"});
    }
  }
  Comparison Compare(StringView, StringView) override { return Comparison::Other; }
  bool IsBlocked(StringView target) override {
    const bool isBlocked = EndsWithIgnoreCase(target, ending_);
    looks += isBlocked ? 1 : 0;
    return isBlocked;
  }
  std::string IdentityOf(StringView source) override { return Utf8(source); }

  int looks = 0;

 private:
  String ending_;
};

/// Planning tries another name for each that it may not look at, and comes to an end.
class DeniedLooksTest : public ::testing::Test {
 protected:
  MoveResult RunWith(BlindPlacer& placer) {
    MoveMachines both{machines.from, machines.to, nullptr, nullptr, {}};
    both.placer = &placer;
    WorkObserver nobody;
    return MovePlaylists(both, {}, nobody);
  }

  /// Where there is no folder the system denies no look.
  void SetUp() override { machines.to->AddFolder(u"C:\\My Documents\\Norvo Media\\Music"); }

  MemoryMove machines;
};

TEST_F(DeniedLooksTest, ASongGetsNoPlaceWhereNoNameMayBeSeen) {
  machines.AddSong(u"C:\\One.mp3");
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\One.mp3"});
  BlindPlacer placer(u".mp3");
  const MoveResult move = RunWith(placer);
  ASSERT_EQ(move.songs.size(), 1u);
  EXPECT_EQ(move.songs[0].state, MovedSong::State::LeftOut);
  EXPECT_EQ(move.songs[0].fault, MovedSong::Fault::NumbersTaken);
  EXPECT_GT(placer.looks, 100);
  EXPECT_LT(placer.looks, 1000);
}

TEST_F(DeniedLooksTest, InAFolderThatIsNotThereNoNameIsLookedFor) {
  machines.to = std::make_shared<MemoryPlatform>();
  machines.AddSong(u"C:\\One.mp3");
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\One.mp3"});
  BlindPlacer placer(u".mp3");
  const MoveResult move = RunWith(placer);
  ASSERT_EQ(move.songs.size(), 1u);
  EXPECT_TEXT(move.songs[0].place, u"C:\\My Documents\\Norvo Media\\Music\\One.mp3");
  EXPECT_EQ(placer.looks, 0);
}

TEST_F(DeniedLooksTest, SongsOfOneNameDoNotMultiplyTheLooks) {
  constexpr int kSongs = 200;
  Lines references;
  for (int i = 0; i < kSongs; ++i) {
    const std::string song = "C:\\" + std::to_string(i) + "\\One.mp3";
    machines.AddSong(FromUtf8Lossy(song));
    references.push_back(song);
  }
  machines.AddPlaylist(u"C:\\Mix.m3u", references);
  BlindPlacer placer(u".mp3");
  const MoveResult move = RunWith(placer);
  for (const MovedSong& song : move.songs) EXPECT_EQ(song.state, MovedSong::State::LeftOut);
  EXPECT_LT(placer.looks, 20 * kSongs + 1000);
}

TEST_F(DeniedLooksTest, APlaylistIsWrittenUnderTheLastNameThatWasTried) {
  machines.AddSong(u"C:\\One.mp3");
  machines.AddPlaylist(u"C:\\Mix.m3u", {"C:\\One.mp3"});
  machines.to->AddFolder(u"C:\\My Documents\\Norvo Media\\PlayLists\\WinAmp");
  BlindPlacer placer(u".m3u");
  const MoveResult move = RunWith(placer);
  const Lines adjustments = AdjustmentsIn(move);
  ASSERT_FALSE(adjustments.empty());
  EXPECT_NE(adjustments[0].find("Mix 100.m3u"), std::string::npos) << adjustments[0];
  EXPECT_LT(placer.looks, 1000);
}

}  // namespace
}  // namespace norvo
