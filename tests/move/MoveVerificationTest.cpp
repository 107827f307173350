#include "move/MixFixture.h"

namespace norvo {
namespace {

/// What the native playlists turn out to hold when they are read back.
class MoveVerificationTest : public MixTest {};

TEST_F(MoveVerificationTest, ANativePlaylistThatIsGoneIsMissedByALaterRun) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const std::string native = NativePath(kPlayers[3], "Mix");
  fs::remove(NewPlace(native));
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 1);
  EXPECT_EQ(again.at("leftOut"), Texts{native + ": was written, and is gone now"});
}

TEST_F(MoveVerificationTest, ANativePlaylistThatWasChangedIsLookedAtAndStays) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const std::string native = NativePath(kPlayers[1], "Mix");
  const std::string changed = "#EXTM3U\r\n" + kRoot + "Music\\Two.mp3\r\nC:\\gone.mp3\r\n";
  WriteNew(native, changed);
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 1);
  EXPECT_EQ(again.at("leftOut"),
            (Texts{native + ": \"" + kRoot + "Music\\Two.mp3\" does not lead to " + kOne,
                   native + ": \"C:\\gone.mp3\" does not lead to " + kTwo}));
  EXPECT_EQ(ReadFile(NewPlace(native)), changed);
}

TEST_F(MoveVerificationTest, AnAddressThatDoesNotFitThePageIsTold) {
  WriteOld(kMix, "\xEF\xBB\xBF" + M3u({kOne, "http://example.com/Ü", R"(\\server\share\Мир.mp3)"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("leftOut"),
            Texts{"C:\\Music\\Mix.m3u: lists of older players cannot hold all letters of "
                  "\"\\\\server\\share\\Мир.mp3\""});
}

}  // namespace
}  // namespace norvo
