#include "move/Companion.h"

#include <gtest/gtest.h>

#include "move/MemoryMove.h"

namespace norvo {
namespace {

const std::string kFolder = "C:\\My Documents\\Norvo Media\\PlayLists\\Modern Players\\";

class CompanionTest : public ::testing::Test {
 protected:
  std::string Companion(const std::string& name) {
    const Contents contents = ContentsOf(*machines.to);
    const auto found = contents.find(kFolder + name);
    return found == contents.end() ? "(none)" : found->second;
  }

  MemoryMove machines;
};

TEST_F(CompanionTest, EveryPlaylistHasOneInUtf8WithEverySong) {
  machines.AddSong(u"C:\\Music\\Песня.mp3");
  machines.from->AddFile(u"C:\\Микс.m3u8", "C:\\Music\\Песня.mp3\r\nhttp://example.com/live\r\n");
  const MoveResult move = machines.Run();
  EXPECT_EQ(Companion("Микс.m3u8"),
            "\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:-1,Песня\r\n"
            "C:\\My Documents\\Norvo Media\\Music\\Песня.mp3\r\nhttp://example.com/live\r\n");
  ASSERT_EQ(move.playlists.size(), 1u);
  EXPECT_EQ(Utf8(move.playlists[0].companion), kFolder + "Микс.m3u8");
  EXPECT_EQ(move.playlists[0].natives.size(), 4u);
}

TEST_F(CompanionTest, PlaylistsOfOneNameGetOneEach) {
  machines.AddSong(u"C:\\One.mp3");
  machines.AddPlaylist(u"C:\\a\\Mix.m3u", {"C:\\One.mp3"});
  machines.AddPlaylist(u"C:\\b\\Mix.m3u", {"C:\\One.mp3"});
  machines.Run();
  EXPECT_NE(Companion("Mix.m3u8"), "(none)");
  EXPECT_NE(Companion("Mix (2).m3u8"), "(none)");
}

TEST_F(CompanionTest, ASecondRunLeavesItAsItIs) {
  machines.AddMix();
  machines.Run();
  const Contents before = ContentsOf(*machines.to);
  const MoveResult again = machines.Run();
  EXPECT_EQ(Utf8(again.playlists.at(0).companion), kFolder + "Mix.m3u8");
  EXPECT_EQ(again.playlists.at(0).state, MovedPlaylist::State::AlreadyRestored);
  EXPECT_EQ(ContentsOf(*machines.to).size(), before.size());
  EXPECT_TRUE(again.IsWhole());
}

TEST_F(CompanionTest, ASongOutsideThe8BitPageHasAPlainNameForTheFourPlayers) {
  machines.AddSong(u"C:\\Music\\Песня.mp3");
  machines.from->AddFile(u"C:\\Mix.m3u",
                         "\xEF\xBB\xBF"
                         "C:\\Music\\Песня.mp3\r\n");
  const MoveResult move = machines.Run();
  const Contents contents = ContentsOf(*machines.to);
  const std::string root = "C:\\My Documents\\Norvo Media\\";
  ASSERT_EQ(move.songs.size(), 1u);
  EXPECT_EQ(Utf8(move.songs[0].place), root + "Music\\Песня.mp3");
  EXPECT_EQ(Utf8(move.songs[0].PlainPlace()), root + "Music\\_____.mp3");
  EXPECT_EQ(contents.at(root + "Music\\Песня.mp3"), contents.at(root + "Music\\_____.mp3"));
  EXPECT_NE(contents.at(root + "PlayLists\\WinAmp\\Mix.m3u").find(root + "Music\\_____.mp3\r\n"),
            std::string::npos);
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(CompanionTest, ALaterRunKeepsBothNamesOfASongWhateverHasComeSince) {
  machines.AddSong(u"C:\\Music\\One.mp3");
  machines.from->AddFile(u"C:\\Mix.m3u8",
                         "#EXTM3U\r\n#EXTINF:1,Кино - Ночь\r\nC:\\Music\\One.mp3\r\n");
  const String place = machines.Run().songs.at(0).place;
  EXPECT_TEXT(place, u"C:\\My Documents\\Norvo Media\\Music\\Кино\\One.mp3");
  machines.from->AddFile(u"C:\\A.m3u8",
                         "#EXTM3U\r\n#EXTINF:1,Звезда - Ночь\r\nC:\\Music\\One.mp3\r\n"
                         "#EXTINF:1,Звезда - Ночь\r\nC:\\Music\\One.mp3\r\n");
  const MoveResult again = machines.Run();
  EXPECT_TEXT(again.songs.at(0).place, place);
  EXPECT_TRUE(again.IsWhole());
}

TEST_F(CompanionTest, AFileWhereItsFolderShouldBeLeavesASongItsOwnName) {
  machines.AddSong(u"C:\\Music\\Песня.mp3");
  machines.from->AddFile(u"C:\\Mix.m3u8",
                         "#EXTM3U\r\n#EXTINF:1,Кино - Ночь\r\nC:\\Music\\Песня.mp3\r\n");
  machines.to->AddFile(u"C:\\My Documents\\Norvo Media\\Music\\Кино", "of the user");
  const MoveResult move = machines.Run();
  ASSERT_EQ(move.songs.size(), 1u);
  EXPECT_TEXT(move.songs[0].place, u"C:\\My Documents\\Norvo Media\\Music\\Песня.mp3");
  EXPECT_TEXT(move.songs[0].PlainPlace(), u"C:\\My Documents\\Norvo Media\\Music\\____\\_____.mp3");
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(CompanionTest, APlainNameThatCannotBeGivenIsToldOf) {
  machines.AddSong(u"C:\\Music\\Песня.mp3");
  machines.from->AddFile(u"C:\\Mix.m3u8", "C:\\Music\\Песня.mp3\r\n");
  MoveMachines both{machines.from, machines.to, nullptr, nullptr, {}};
  struct Refusing final : MediaPlacer {
    void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode, PlaceListener& listener) override {
      for (std::size_t i = 0; i < jobs.size(); ++i) {
        listener.OnPlaced(i, {PlaceResult::Failed, PlaceFailure::NotCopied, u"the disk is full"});
      }
    }
    Comparison Compare(StringView, StringView) override { return Comparison::Other; }
    bool IsBlocked(StringView) override { return false; }
    std::string IdentityOf(StringView) override { return {}; }
  } namer;
  both.namer = &namer;
  WorkObserver nobody;
  const MoveResult move = MovePlaylists(both, {}, nobody);
  EXPECT_FALSE(move.IsWhole());
  const Lines warnings = LinesOf(move.warnings);
  ASSERT_FALSE(warnings.empty());
  EXPECT_EQ(warnings[0],
            "new: NoPlainName C:\\My Documents\\Norvo Media\\Music\\Песня.mp3, detail the disk is "
            "full, wanted C:\\My Documents\\Norvo Media\\Music\\_____.mp3");
}

}  // namespace
}  // namespace norvo
