#include "move/CollectPlaylists.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/RunTimeError.h"
#include "move/MoveError.h"
#include "move/WatchedWork.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

const std::string kData = "C:\\My Documents\\Norvo Media\\KVs\\";

class CollectPlaylistsTest : public ::testing::Test {
 protected:
  CollectPlaylistsTest() {
    machines.from->ConfigureProduct();
    machines.AddMix();
    machines.AddWeb();
  }
  CollectResult Collect(WatchedWork& watched) {
    return CollectPlaylists(machines.from, {}, watched);
  }

  MemoryMove machines;
  WatchedWork heard;
};

TEST_F(CollectPlaylistsTest, TellsWhatBecameOfEachPlaylist) {
  machines.AddPlaylist(u"C:\\Music\\Gone.m3u", {"Gone.mp3"});
  const CollectResult result = Collect(heard);
  EXPECT_EQ(Utf8(result.met),
            (Lines{"C:\\Music\\Gone.m3u", "C:\\Music\\Mix.m3u", "C:\\Music\\Web.pls"}));
  EXPECT_EQ(result.scan.playlists.size(), 3u);
  ASSERT_EQ(result.playlists.size(), 3u);
  const CollectedPlaylist& gone = result.playlists[0];
  EXPECT_TEXT(gone.path, u"C:\\Music\\Gone.m3u");
  EXPECT_EQ(gone.outcome, PlaylistOutcome::Empty);
  ASSERT_EQ(gone.drops.size(), 1u);
  EXPECT_EQ(gone.drops[0].outcome, ItemOutcome::Missing);
  EXPECT_TEXT(gone.drops[0].reference, u"C:\\Music\\Gone.mp3");
  const CollectedPlaylist& mix = result.playlists[1];
  EXPECT_EQ(mix.type, 3);
  EXPECT_EQ(mix.outcome, PlaylistOutcome::Written);
  EXPECT_EQ(mix.kept, 2u);
  EXPECT_EQ(Utf8(mix.genericFile), kData + "Mix.ini");
  EXPECT_TRUE(machines.from->HasFile(mix.genericFile));
  EXPECT_FALSE(mix.replacedBy.has_value());
  EXPECT_EQ(result.playlists[2].kept, 2u);
  EXPECT_EQ(Utf8(result.dataArea), kData);
  EXPECT_EQ(result.mediaBytes, 75);
}

TEST_F(CollectPlaylistsTest, TellsTheObserverOfEachStepInItsOrder) {
  Collect(heard);
  EXPECT_EQ(heard.events, (Lines{"collected C:\\Music\\Mix.m3u: " + kData + "Mix.ini",
                                 "dropped from C:\\Music\\Web.pls: C:\\Music\\Gone.mp3",
                                 "collected C:\\Music\\Web.pls: " + kData + "Web.ini"}));
  EXPECT_EQ(heard.Phases(), (std::vector<WorkPhase>{WorkPhase::Scanning, WorkPhase::Collecting}));
}

TEST_F(CollectPlaylistsTest, OfTwoPlaylistsOfOneNameTheLaterReplacesTheGenericFile) {
  machines.AddPlaylist(u"C:\\Other\\Mix.m3u", {"http://example.com/"});
  const CollectResult result = Collect(heard);
  std::size_t replaced = 0;
  for (std::size_t i = 0; i < result.playlists.size(); ++i) {
    if (!result.playlists[i].replacedBy) continue;
    ++replaced;
    EXPECT_TEXT(result.playlists[i].path, u"C:\\Music\\Mix.m3u");
    EXPECT_TEXT(result.playlists[*result.playlists[i].replacedBy].path, u"C:\\Other\\Mix.m3u");
  }
  EXPECT_EQ(replaced, 1u);
  EXPECT_EQ(std::count(heard.events.begin(), heard.events.end(),
                       "C:\\Music\\Mix.m3u replaced by C:\\Other\\Mix.m3u"),
            1);
}

TEST_F(CollectPlaylistsTest, WarnsOfAQueueThatEndsBeforeItsEnd) {
  machines.from->FailOn(u"Settings.Read", 4, error::kDeviceInputOutput);
  const CollectResult result = Collect(heard);
  EXPECT_EQ(heard.warnings, LinesOf(result.warnings));
  EXPECT_FALSE(result.cancelled);
}

TEST_F(CollectPlaylistsTest, CanBeEndedAtAnyStepWithoutAWarningAndDoneAnew) {
  const CollectResult whole = Collect(heard);
  for (std::size_t n = 1; n <= heard.questions; ++n) {
    WatchedWork ending(n);
    const CollectResult result = Collect(ending);
    EXPECT_TRUE(result.cancelled) << n;
    EXPECT_TRUE(result.warnings.empty()) << n;
    EXPECT_LE(result.playlists.size(), whole.playlists.size()) << n;
  }
  WatchedWork again;
  EXPECT_EQ(Collect(again).playlists.size(), 2u);
  EXPECT_EQ(again.events, heard.events);
}

TEST_F(CollectPlaylistsTest, ASettingsPlaylistThatCannotBeReadIsNotCalledEmpty) {
  machines.from->Files().Deny(u"C:\\Music\\Web.pls");
  const CollectResult result = Collect(heard);
  ASSERT_EQ(result.playlists.size(), 2u);
  EXPECT_EQ(result.playlists[1].outcome, PlaylistOutcome::Unreadable);
}

TEST_F(CollectPlaylistsTest, ASongThatCannotBeReadIsToldOnce) {
  machines.AddPlaylist(u"C:\\Music\\Other.m3u", {"C:\\Music\\One.mp3"});
  machines.from->Files().Deny(u"C:\\Music\\One.mp3");
  const CollectResult result = Collect(heard);
  EXPECT_EQ(LinesOf(result.warnings),
            Lines{"old: TagsNotRead C:\\Music\\One.mp3, detail Permission denied"});
  EXPECT_EQ(result.playlists[0].kept, 2u) << "it is taken without them";
}

TEST_F(CollectPlaylistsTest, AFileOfTheProductsThatCannotBeUsedEndsItBeforeAnythingIsWritten) {
  machines.from->AddFile(FromUtf8Lossy(kData + "MediaList.txt"), "x");
  const std::string root = "C:\\My Documents\\Norvo Media\\";
  for (const std::string& path : {root + "SubNames.txt", kData + "MediaList.txt"}) {
    machines.from->Files().Deny(FromUtf8Lossy(path));
    const Contents before = ContentsOf(*machines.from);
    try {
      Collect(heard);
      ADD_FAILURE() << path;
    } catch (const MoveError& error) {
      EXPECT_EQ(error.Fault(), MoveFault::FileInUse);
      EXPECT_EQ(error.Subject(), path);
      EXPECT_EQ(error.Detail(), "Permission denied");
    }
    EXPECT_EQ(ContentsOf(*machines.from), before);
    machines.from->AddFile(FromUtf8Lossy(path), machines.from->Bytes(FromUtf8Lossy(path)));
  }
}

TEST_F(CollectPlaylistsTest, AMediaListThatCannotBeAddedToEndsItAsWell) {
  machines.from->AddFile(FromUtf8Lossy(kData + "MediaList.txt"), "x");
  machines.from->Files().SetReadOnly(FromUtf8Lossy(kData + "MediaList.txt"));
  EXPECT_THROW(Collect(heard), MoveError);
}

}  // namespace
}  // namespace norvo
