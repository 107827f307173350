#include <gtest/gtest.h>

#include <algorithm>

#include "move/MixFixture.h"

namespace norvo {
namespace {

/// A machine that a move has come to is searched for playlists itself.
class MadeListsTest : public MixTest {
 protected:
  fs::path Copies() const { return NewPlace(kRoot + R"(KVs\RestoredCopies.txt)"); }
  fs::path WinampList() const { return NewPlace(NativePath(kPlayers[1], "Mix")); }

  nlohmann::json OfNew(const std::string& command) const {
    return RunProgram({command, "--machine", New(), "--json"}).Document();
  }
  /// The playlists that a scan of the new machine lists.
  Texts Scanned() const {
    Texts paths;
    const nlohmann::json scanned = OfNew("scan");
    for (const auto& playlist : scanned.at("playlists")) paths.push_back(playlist.at("path"));
    return paths;
  }
};

TEST_F(MadeListsTest, ScanAndCollectSkipThem) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  WriteNew(R"(C:\Own\Own.m3u)", M3u({kRoot + R"(Music\One.mp3)"}));
  EXPECT_EQ(Scanned(), (Texts{R"(C:\Own\Own.m3u)"}));
  EXPECT_EQ(OfNew("scan").at("skipped").size(), 4u);
  const nlohmann::json collected = OfNew("collect");
  EXPECT_EQ(collected.at("exitCode"), 0);
  EXPECT_EQ(collected.at("summary").at("restoredCopy"), 4);
  EXPECT_EQ(collected.at("summary").at("written"), 1);
  EXPECT_FALSE(fs::exists(NewPlace(kRoot + R"(KVs\Mix.ini)")));
}

TEST_F(MadeListsTest, OneThatAPersonHasChangedIsOneOfTheMachinesOwn) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  WriteFile(WinampList(), M3u({kRoot + R"(Music\Two.mp3)"}));
  EXPECT_EQ(Scanned(), (Texts{NativePath(kPlayers[1], "Mix")}));
  EXPECT_EQ(Moved().at("summary").at("alreadyRestored"), 1);
  EXPECT_EQ(Scanned(), (Texts{NativePath(kPlayers[1], "Mix")}));
}

TEST_F(MadeListsTest, ChangedBeforeAMoveThatWasEndedGoesOnTheyAreThePersonsAllTheSame) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const std::string noted = ReadFile(Copies());
  fs::remove(Copies());  // the move was ended before it came to that
  WriteFile(WinampList(), M3u({kRoot + R"(Music\Two.mp3)"}));
  ASSERT_EQ(Moved({"--no-media"}).at("summary").at("alreadyRestored"), 1);
  EXPECT_EQ(ReadFile(Copies()), noted);
  EXPECT_EQ(Scanned(), (Texts{NativePath(kPlayers[1], "Mix")}));
}

TEST_F(MadeListsTest, ThatTheyCannotBeNotedIsToldAndTheNextMoveMendsIt) {
  fs::create_directories(Copies());
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err,
                    "RestoredCopies.txt: the lists that were made here could not be "
                    "noted: "))
      << outcome.err;
  ExpectMoved("Mix", {kOne, kTwo});
  fs::remove(Copies());
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(Scanned(), Texts());
}

TEST_F(MadeListsTest, ADryRunNotesNothing) {
  fs::create_directories(NewPlace("C:\\"));
  const auto before = Snapshot(New());
  EXPECT_EQ(Moved({"--dry-run"}).at("exitCode"), 0);
  EXPECT_EQ(Snapshot(New()), before);
}

/// From the new machine on to a third one.
class ThirdMachineTest : public MadeListsTest {
 protected:
  std::string Third() const { return (Root() / "third").string(); }
  nlohmann::json MovedOn() const {
    return RunProgram({"migrate", "--json", "--from", New(), "--to", Third()}).Document();
  }
  /// The contents of all its songs, and the names of all its lists for players of today, sorted.
  Texts SongsOfThird() const {
    Texts songs;
    for (const auto& [path, bytes] : Snapshot(Third())) {
      if (path.ends_with(".mp3")) songs.push_back(bytes);
    }
    std::sort(songs.begin(), songs.end());
    return songs;
  }
  Texts ListsOfThird(const std::string& extension) const {
    Texts names;
    for (const auto& [path, bytes] : Snapshot(Third())) {
      if (path.ends_with(extension)) names.push_back(fs::path(path).filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void AddMore() const {
    AddSong(R"(C:\Music\Three.mp3)");
    WriteOld(R"(C:\Music\Party.pls)", Pls({kTwo, R"(C:\Music\Three.mp3)"}));
    WriteOld(R"(C:\Other\Mix.m3u)", M3u({kTwo}));
  }
  void ExpectAllOnce() const {
    EXPECT_EQ(SongsOfThird(), (Texts{"The song C:\\Music\\One.mp3", "The song C:\\Music\\Three.mp3",
                                     "The song C:\\Music\\Two.mp3"}));
    EXPECT_EQ(ListsOfThird(".m3u8").size(), 3u);
    EXPECT_EQ(ListsOfThird(".asx").size(), 3u);
    EXPECT_EQ(ListsOfThird(".pls").size(), 3u);
    EXPECT_EQ(ListsOfThird(".m3u").size(), 6u);  // of two players
  }
};

TEST_F(ThirdMachineTest, EveryListAndSongComesOnce) {
  AddMore();
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const nlohmann::json moved = MovedOn();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("summary").at("restored"), 3);
  ExpectAllOnce();
}

TEST_F(ThirdMachineTest, ACollectingInBetweenTakesNothingAway) {
  AddMore();
  ASSERT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(OfNew("collect").at("summary").at("restoredCopy"), 12);
  EXPECT_EQ(MovedOn().at("exitCode"), 0);
  ExpectAllOnce();
}

TEST_F(ThirdMachineTest, AListThatWasChangedInBetweenComesAsWell) {
  AddMore();
  ASSERT_EQ(Moved().at("exitCode"), 0);
  WriteFile(WinampList(), M3u({kRoot + R"(Music\Three.mp3)"}));
  EXPECT_EQ(MovedOn().at("exitCode"), 0);
  EXPECT_EQ(SongsOfThird().size(), 3u);
  EXPECT_EQ(ListsOfThird(".m3u8").size(), 4u);
}

}  // namespace
}  // namespace norvo
