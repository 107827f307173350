#include "move/VerifyPlaylists.h"

#include <gtest/gtest.h>

#include "move/WatchedWork.h"

namespace norvo {
namespace {

using Kind = VerifiedReference::Kind;

/// A machine with one restored playlist and another elsewhere.
class VerifyPlaylistsTest : public ::testing::Test {
 protected:
  VerifyPlaylistsTest() {
    machine->ConfigureProduct();
    machine->AddFile(u"C:\\Music\\One.mp3", "one");
    machine->AddFile(
        kMix, "#EXTM3U\r\nC:\\Music\\One.mp3\r\nC:\\Music\\Gone.mp3\r\nhttp://a.example/\r\n");
    machine->AddFile(u"C:\\Elsewhere.m3u", "#EXTM3U\r\nC:\\Music\\One.mp3\r\n");
  }
  VerifyResult Verify(const std::vector<std::string>& paths = {}, bool log = false) {
    return VerifyPlaylists(machine, paths, {log}, heard);
  }

  static constexpr StringView kMix = u"C:\\My Documents\\Norvo Media\\PlayLists\\WinAmp\\Mix.m3u";
  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  WatchedWork heard;
};

TEST_F(VerifyPlaylistsTest, LooksUpEachReferenceOfTheRestoredPlaylists) {
  const VerifyResult result = Verify();
  ASSERT_EQ(result.playlists.size(), 1u);
  const VerifiedPlaylist& mix = result.playlists[0];
  EXPECT_TEXT(mix.path, kMix);
  EXPECT_TRUE(mix.whole);
  ASSERT_EQ(mix.references.size(), 3u);
  EXPECT_EQ(mix.references[0].kind, Kind::Found);
  EXPECT_TEXT(mix.references[0].reference, u"C:\\Music\\One.mp3");
  EXPECT_EQ(mix.references[1].kind, Kind::Missing);
  EXPECT_TEXT(mix.references[1].reference, u"C:\\Music\\Gone.mp3");
  EXPECT_EQ(mix.references[2].kind, Kind::Address);
  EXPECT_TEXT(mix.references[2].reference, u"http://a.example/");
  EXPECT_EQ(mix.Count(Kind::Found), 1u);
  EXPECT_EQ(mix.Count(Kind::Missing), 1u);
  EXPECT_EQ(mix.Count(Kind::Address), 1u);
}

TEST_F(VerifyPlaylistsTest, ReadsThoseThatAreNamedInTheirOrder) {
  const VerifyResult result = Verify({"C:\\Elsewhere.m3u", Utf8(kMix), "C:\\None.m3u"});
  ASSERT_EQ(result.playlists.size(), 3u);
  EXPECT_TEXT(result.playlists[0].path, u"C:\\Elsewhere.m3u");
  EXPECT_EQ(result.playlists[0].Count(Kind::Found), 1u);
  EXPECT_TEXT(result.playlists[1].path, kMix);
  EXPECT_FALSE(result.playlists[2].whole);
  EXPECT_TRUE(result.playlists[2].references.empty());
  EXPECT_TEXT(result.playlists[2].reason, u"File not found");
}

TEST_F(VerifyPlaylistsTest, TellsTheObserverOfEachPlaylist) {
  Verify({"C:\\Elsewhere.m3u", Utf8(kMix)});
  EXPECT_EQ(heard.events, (Lines{"verified C:\\Elsewhere.m3u", "verified " + Utf8(kMix)}));
  ASSERT_EQ(heard.steps.size(), 2u);
  EXPECT_EQ(heard.steps[1].progress.phase, WorkPhase::Verifying);
  EXPECT_EQ(heard.steps[1].progress.position, 2u);
  EXPECT_EQ(heard.steps[1].progress.count, 2u);
  EXPECT_EQ(heard.steps[1].current, Utf8(kMix));
}

TEST_F(VerifyPlaylistsTest, ChangesNothingOnTheMachine) {
  Verify();
  EXPECT_EQ(WritesOf(*machine), Lines());
  EXPECT_TRUE(machine->Records().empty());
}

TEST_F(VerifyPlaylistsTest, AFileThatIsNotThereIsMissing) {
  const VerifiedPlaylist gone = Verify({"C:\\Gone.m3u"}).playlists.at(0);
  EXPECT_TRUE(gone.missing);
  EXPECT_FALSE(gone.whole);
  machine->Files().Deny(kMix);
  EXPECT_FALSE(Verify({Utf8(kMix)}).playlists.at(0).missing);
}

TEST_F(VerifyPlaylistsTest, WhatTheReadersTellStandsInTheLog) {
  machine->AddFile(u"C:\\Web.m3u", "#EXTM3U\r\nGone.mp3\r\n");
  Verify({"C:\\Web.m3u"}, true);
  EXPECT_NE(machine->Bytes(u"C:\\Norvo\\VBLog.txt").find("Gone.mp3"), std::string::npos);
}

TEST_F(VerifyPlaylistsTest, ButForTheLog) {
  EXPECT_TEXT(Verify({}, true).log.path, u"C:\\Norvo\\VBLog.txt");
  EXPECT_EQ(heard.logs, Lines{"old: C:\\Norvo\\VBLog.txt"});
}

TEST_F(VerifyPlaylistsTest, CanBeEndedAtAnyPlaylist) {
  for (std::size_t n : {1u, 2u}) {
    WatchedWork ending(n);
    const VerifyResult result =
        VerifyPlaylists(machine, {"C:\\Elsewhere.m3u", Utf8(kMix)}, {}, ending);
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.playlists.size(), n - 1);
    EXPECT_EQ(ending.events.size(), n - 1);
  }
}

TEST_F(VerifyPlaylistsTest, AListOfMoreItemsThanAnyHasIsNotReadToItsEnd) {
  std::string text = "x\ny\r\n";  // two lines for most players, and one for the library
  for (int i = 2; i < 100'000; ++i) text += "a\n";
  machine->AddFile(kMix, text);
  EXPECT_TRUE(Verify().playlists.at(0).whole);
  machine->AddFile(kMix, text + "a");
  EXPECT_FALSE(Verify().playlists.at(0).whole);
  EXPECT_TEXT(Verify().playlists.at(0).reason,
              u"it lists more than 100000 songs, or its library is too large");
}

}  // namespace
}  // namespace norvo
