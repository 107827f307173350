#include "move/MovePlaylists.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/RunTimeError.h"
#include "move/MemoryMove.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

const std::string kCarried = "C:\\My Documents\\Norvo PlayLists\\";

/// Moves between two machines in memory, without a placer of their own.
class MovePlaylistsTest : public ::testing::Test {
 protected:
  std::string BytesOnNew(const std::string& path) {
    const Contents contents = ContentsOf(*machines.to);
    const auto found = contents.find(path);
    return found == contents.end() ? "(none)" : found->second;
  }
  static MoveOptions DryRun() {
    MoveOptions options;
    options.dryRun = true;
    return options;
  }

  MemoryMove machines;
};

TEST_F(MovePlaylistsTest, EveryItemHasItsFateAndNumber) {
  machines.AddMix();
  machines.AddWeb();
  machines.from->AddFile(u"C:\\Music\\Notes.txt", "no media");
  machines.AddPlaylist(u"C:\\Music\\All.m3u",
                       {"Two.mp3", "Gone.mp3", "http://example.com/live", "C:\\Music\\Notes.txt",
                        "C:\\Music\\One.mp3", "Two.mp3"});
  const MoveResult move = machines.Run();
  EXPECT_EQ(
      PlaylistsIn(move),
      (Lines{"C:\\Music\\All.m3u of type 3: restored", "  1: song 0", "  0: no such file Gone.mp3",
             "  2: address http://example.com/live", "  0: not media C:\\Music\\Notes.txt",
             "  3: song 1", "  4: song 0", "C:\\Music\\Mix.m3u of type 3: restored", "  1: song 1",
             "  2: song 0", "C:\\Music\\Web.pls of type 4: restored",
             "  1: address http://example.com/a.mp3", "  2: song 1",
             "  0: no such file Gone.mp3"}));
  EXPECT_EQ(CountSongs(move.playlists[0]), 3u);
  EXPECT_EQ(CountAddresses(move.playlists[0]), 1u);
  EXPECT_EQ(CountOf(move, MovedPlaylist::State::Restored), 3u);
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, WithoutAnAdministratorsRightsAllIsDoneForTheUser) {
  machines.AddMix();
  machines.to->Registry().AddKey(Hive::LocalMachine, u"SOFTWARE");
  machines.to->Registry().RefuseMachineWrites();
  const MoveResult move = machines.Run();
  EXPECT_TRUE(move.IsWhole());
  EXPECT_EQ(LinesOf(move.warnings), (Lines{"new: SettingsOfUser SOFTWARE\\Norvo\\Migration"}));
  EXPECT_EQ(CountOf(move, MovedPlaylist::State::Restored), 1u);
  const MoveResult again = machines.Run();
  EXPECT_EQ(LinesOf(again.warnings), Lines());
  EXPECT_EQ(CountOf(again, MovedPlaylist::State::AlreadyRestored), 1u);
}

TEST_F(MovePlaylistsTest, EverySongIsThereOnceWithItsPlace) {
  machines.AddMix();
  machines.AddWeb();
  const MoveResult move = machines.Run();
  EXPECT_EQ(SongsIn(move), (Lines{"C:\\Music\\One.mp3 -> " + kNewRoot + "Music\\One.mp3: copied",
                                  "C:\\Music\\Two.mp3 -> " + kNewRoot + "Music\\Two.mp3: copied"}));
  EXPECT_EQ(move.songs[0].size, 25);
  EXPECT_EQ(BytesOnNew(kNewRoot + "Music\\One.mp3"), "The song C:\\Music\\One.mp3");
  EXPECT_EQ(BytesOnNew(kNewRoot + "Music\\Two.mp3"), "The song C:\\Music\\Two.mp3");
}

TEST_F(MovePlaylistsTest, ThePathsOfWhatWasMadeOfAPlaylistAreTold) {
  machines.AddMix();
  const MoveResult move = machines.Run();
  ASSERT_EQ(move.playlists.size(), 1u);
  EXPECT_EQ(Utf8(move.playlists[0].collected), kNewRoot + "KVs\\Mix.ini");
  EXPECT_TRUE(machines.from->HasFile(move.playlists[0].collected));
  EXPECT_EQ(Utf8(move.playlists[0].carried), kCarried + "Mix.ini");
  EXPECT_TRUE(machines.to->HasFile(move.playlists[0].carried));
  EXPECT_EQ(Utf8(move.playlists[0].natives),
            (Lines{kNewRoot + "PlayLists\\Windows Media Player\\Mix.asx",
                   kNewRoot + "PlayLists\\WinAmp\\Mix.m3u",
                   kNewRoot + "PlayLists\\MusicMatch Jukebox\\Mix.m3u",
                   kNewRoot + "PlayLists\\Sonique\\Mix.pls"}));
  for (const String& native : move.playlists[0].natives) EXPECT_TRUE(machines.to->HasFile(native));
  EXPECT_EQ(BytesOnNew(kNewRoot + "PlayLists\\WinAmp\\Mix.m3u"),
            "#EXTM3U\r\n" + kNewRoot + "Music\\One.mp3\r\n" + kNewRoot + "Music\\Two.mp3\r\n");
}

TEST_F(MovePlaylistsTest, EveryLocalReferenceOfTheNativePlaylistsIsVerified) {
  machines.AddMix();
  machines.AddWeb();
  const MoveResult move = machines.Run();
  EXPECT_EQ(move.verification.checked, 12u);
  EXPECT_EQ(move.verification.found, 12u);
}

TEST_F(MovePlaylistsTest, AnAdjustmentTellsWhatWasChangedAndWhy) {
  machines.AddSong(u"C:\\Music\\One.mp3");
  machines.AddSong(u"C:\\Other\\One.mp3");
  machines.AddPlaylist(u"C:\\Music\\<Ref> Mix. Best.m3u",
                       {"C:\\Music\\One.mp3", "C:\\Other\\One.mp3", "One.mp3"});
  const MoveResult move = machines.Run();
  EXPECT_EQ(
      AdjustmentsIn(move),
      (Lines{"playlist 0, entry 0, OriginalFileName: <Ref> Mix. Best.m3u -> Ref Mix  Best.m3u, "
             "reason NameUnusable",
             "playlist 0, entry 2, FileName: One.mp3 -> One (2).mp3, reason OtherSong",
             "playlist 0, entry 3, FileName:  -> One.mp3, reason RelativeReference"}));
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, WhatTheLibrarysOwnRulesWouldCutIsMended) {
  machines.AddSong(u"C:\\Music\\One.mp3");
  // Without "NumberOfEntries" the readers understand none of it.
  machines.from->AddFile(u"C:\\Music\\Plain.pls", "[playlist]\r\nFile1=One.mp3\r\n");
  // They take no address of a local file.
  machines.AddPlaylist(u"C:\\Music\\Url.m3u", {"One.mp3", "file:///C:/Music/One.mp3"});
  const MoveResult move = machines.Run();
  EXPECT_EQ(PlaylistsIn(move),
            (Lines{"C:\\Music\\Plain.pls of type 5: restored", "  1: song 0",
                   "  mended: NothingUnderstood", "  mended: EntriesAdded 1",
                   "C:\\Music\\Url.m3u of type 3: restored", "  1: song 0", "  2: song 0",
                   "  mended: Incomplete", "  mended: EntriesAdded 1"}));
  EXPECT_EQ(CountMended(move), 2u);
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, APlaylistOfNothingThatExistsIsToldAndNotMoved) {
  machines.AddPlaylist(u"C:\\Music\\Gone.m3u", {"Gone.mp3"});
  const MoveResult move = machines.Run();
  EXPECT_EQ(PlaylistsIn(move),
            (Lines{"C:\\Music\\Gone.m3u of type 3: no songs", "  0: no such file Gone.mp3"}));
  EXPECT_TRUE(move.songs.empty());
  EXPECT_TRUE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, APlaylistOfMoreThanAnybodyHasIsLeftOutByName) {
  std::string lines = "#EXTM3U\r\n";
  for (int i = 0; i <= 100'000; ++i) lines += "http://x\r\n";
  machines.from->AddFile(u"C:\\Music\\All.m3u", lines);
  machines.AddMix();
  const MoveResult move = machines.Run();
  EXPECT_EQ(LineOf(move.playlists[0]),
            "C:\\Music\\All.m3u of type 3: left out, Unreadable, it lists more than 100000 songs, "
            "or its library is too large");
  EXPECT_EQ(LineOf(move.playlists[1]), "C:\\Music\\Mix.m3u of type 3: restored");
  EXPECT_FALSE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, APlaylistThatCannotBeReadIsLeftOut) {
  machines.AddMix();
  machines.AddWeb();
  machines.from->Files().Deny(u"C:\\Music\\Mix.m3u");
  const MoveResult move = machines.Run();
  EXPECT_EQ(LineOf(move.playlists[0]),
            "C:\\Music\\Mix.m3u of type 0: left out, Unreadable, Permission denied");
  EXPECT_EQ(LineOf(move.playlists[1]), "C:\\Music\\Web.pls of type 4: restored");
  EXPECT_FALSE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, AFolderThatCannotBeListedOnceLeavesNoPlaylistBehindUntold) {
  const auto fill = [](MemoryMove& move) {
    move.AddSong(u"C:\\Music\\One.mp3");
    // The scan for playlists does not look for such a one.
    move.from->AddFile(u"C:\\Music\\Mix.m3u8", "#EXTM3U\r\nOne.mp3\r\n");
  };
  fill(machines);
  ASSERT_EQ(machines.Run().playlists.size(), 1u);
  for (std::size_t k = 1; k <= machines.from->Calls(u"ListFolder"); ++k) {
    MemoryMove failing;
    fill(failing);
    failing.from->FailOn(u"ListFolder", k, error::kDeviceInputOutput);
    const MoveResult move = failing.Run();
    EXPECT_FALSE(move.playlists.empty() && move.IsWhole()) << k;
  }
}

TEST_F(MovePlaylistsTest, AFolderThatCanNeverBeListedIsToldOnce) {
  machines.AddMix();
  machines.from->AddFolder(u"C:\\Private");
  machines.from->Files().Deny(u"C:\\Private");
  EXPECT_EQ(LinesOf(machines.Run().warnings),
            (Lines{"old: Library HelperMan::GetAllPlayLists -> Permission denied"}));
}

TEST_F(MovePlaylistsTest, ThePlayersArePointedAlsoWhenTheRestoringEndsBeforeItsEnd) {
  const auto install = [](const MemoryMove& move) {
    move.to->AddFile(u"C:\\Winamp\\Winamp.ini", "[Winamp]\r\nvolume=90\r\n");
    move.to->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                         String(u"C:\\Winamp\\Winamp.exe %1"));
  };
  machines.AddMix();
  install(machines);
  ASSERT_EQ(machines.Run().settings.size(), 1u);
  for (std::size_t k = 1; k <= machines.to->Calls(u"Append"); ++k) {
    MemoryMove failing;
    failing.AddMix();
    install(failing);
    failing.to->FailOn(u"Append", k, error::kDiskFull);
    EXPECT_EQ(failing.Run().settings.size(), 1u) << k;
  }
}

TEST_F(MovePlaylistsTest, ASongThatCannotBeReadIsLeftOutAndItsPlaylistGoes) {
  machines.AddMix();
  machines.from->Files().Deny(u"C:\\Music\\Two.mp3");
  const MoveResult move = machines.Run();
  EXPECT_EQ(SongsIn(move), (Lines{"C:\\Music\\One.mp3 -> " + kNewRoot + "Music\\One.mp3: copied",
                                  "C:\\Music\\Two.mp3 -> " + kNewRoot +
                                      "Music\\Two.mp3: left out, NotBrought, "
                                      "SourceUnreadable, Permission denied"}));
  EXPECT_EQ(LineOf(move.playlists[0]), "C:\\Music\\Mix.m3u of type 3: restored");
  EXPECT_EQ(move.verification.checked, 8u);
  EXPECT_EQ(move.verification.found, 4u);
  EXPECT_FALSE(move.IsWhole());
}

TEST_F(MovePlaylistsTest, ASongOfTheNewMachineThatCannotBeReadIsNotBroughtOnceMore) {
  machines.AddMix();
  ASSERT_TRUE(machines.Run().IsWhole());
  const auto lists = machines.to->Files().AllFiles();
  const String place = FromUtf8Lossy(kNewRoot + "Music\\Two.mp3");
  machines.to->Files().Deny(place);
  const MoveResult move = machines.Run();
  EXPECT_EQ(SongsIn(move)[1], "C:\\Music\\Two.mp3 -> " + kNewRoot +
                                  "Music\\Two.mp3: left out, NotBrought, NotComparable");
  EXPECT_EQ(LineOf(move.playlists[0]), "C:\\Music\\Mix.m3u of type 3: already restored");
  EXPECT_FALSE(move.IsWhole());
  EXPECT_EQ(machines.to->Files().AllFiles(), lists);
}

TEST_F(MovePlaylistsTest, SongsOnABadSpotOfTheDiskAreLeftOutAndAllElseGoes) {
  machines.AddMix();
  machines.from->AddFile(u"C:\\Music\\Alone.mp3", "ID3");
  machines.from->Files().Break(u"C:\\Music\\Two.mp3");
  machines.from->Files().Break(u"C:\\Music\\Alone.mp3");
  MoveOptions all;
  all.allMusic = true;
  const MoveResult move = machines.Run(all);
  EXPECT_EQ(LineOf(move.playlists[0]), "C:\\Music\\Mix.m3u of type 3: restored");
  EXPECT_FALSE(move.IsWhole());
}

/// The calls that give the ledger, and what it names, to the disk: by the last names, in order.
Lines FlushesOf(MemoryPlatform& machine) {
  Lines flushes;
  for (const String& call : machine.Log().Trace()) {
    const bool isLedger = call.starts_with(u"Settings.Write") && call.ends_with(u"\\Restored.txt");
    if (!isLedger && !call.starts_with(u"MakeDurable")) continue;
    flushes.push_back((isLedger ? "write " : "") + Utf8(call.substr(call.rfind(u'\\') + 1)));
  }
  return flushes;
}

TEST_F(MovePlaylistsTest, NewListsAreNotedBeforeTheyAreMadeAndOnTheDiskBeforeTheyCount) {
  machines.AddMix();
  machines.Run();
  EXPECT_EQ(FlushesOf(*machines.to),
            (Lines{"write Restored.txt", "Restored.txt", "Mix.asx", "Mix.m3u", "Mix.m3u", "Mix.pls",
                   "Mix.m3u8", "Restored.txt", "write Restored.txt"}));
}

TEST_F(MovePlaylistsTest, AListWhoseNameIsTakenIsNotedByTheNextOneBeforeItIsMade) {
  machines.AddMix();
  machines.to->AddFile(u"C:\\My Documents\\Norvo Media\\PlayLists\\Sonique\\Mix.pls", "foreign");
  machines.Run();
  const Lines flushes = FlushesOf(*machines.to);
  EXPECT_EQ(std::count(flushes.begin(), flushes.end(), "Restored.txt"), 3);
  EXPECT_EQ(std::count(flushes.begin(), flushes.end(), "Mix1.pls"), 1);
}

TEST_F(MovePlaylistsTest, ADryRunTellsTheSamePlanAndWritesNothingOnTheNewMachine) {
  machines.AddMix();
  machines.AddWeb();
  const MoveResult planned = machines.Run(DryRun());
  EXPECT_EQ(WritesOf(*machines.to), Lines());
  EXPECT_EQ(ContentsOf(*machines.to), Contents());
  EXPECT_FALSE(machines.to->HasFolder(u"C:\\My Documents"));
  EXPECT_EQ(SongsIn(planned),
            (Lines{"C:\\Music\\One.mp3 -> " + kNewRoot + "Music\\One.mp3: planned",
                   "C:\\Music\\Two.mp3 -> " + kNewRoot + "Music\\Two.mp3: planned"}));
  const MoveResult done = machines.Run();
  EXPECT_EQ(PlaylistsIn(planned), PlaylistsIn(done));
  EXPECT_EQ(AdjustmentsIn(planned), AdjustmentsIn(done));
  EXPECT_EQ(planned.verification.checked, done.verification.checked);
  EXPECT_EQ(planned.verification.found, done.verification.found);
  for (std::size_t i = 0; i < done.playlists.size(); ++i) {
    EXPECT_EQ(planned.playlists[i].natives, done.playlists[i].natives);
    EXPECT_EQ(planned.playlists[i].carried, done.playlists[i].carried);
  }
  EXPECT_TRUE(planned.IsWhole());
}

TEST_F(MovePlaylistsTest, ADryRunOverAMovedMachineFindsAllDone) {
  machines.AddMix();
  machines.Run();
  const Contents before = ContentsOf(*machines.to);
  machines.to->Log().Clear();
  const MoveResult planned = machines.Run(DryRun());
  EXPECT_EQ(CountOf(planned, MovedPlaylist::State::AlreadyRestored), 1u);
  EXPECT_EQ(planned.songs[0].state, MovedSong::State::AlreadyThere);
  EXPECT_EQ(WritesOf(*machines.to), Lines());
  EXPECT_EQ(ContentsOf(*machines.to), before);
}

TEST_F(MovePlaylistsTest, WithoutMediaTheSongsStayPlannedAndTheirPlaylistsAreWritten) {
  machines.AddMix();
  MoveOptions options;
  options.media = MediaMode::None;
  const MoveResult move = machines.Run(options);
  EXPECT_EQ(SongsIn(move),
            (Lines{"C:\\Music\\One.mp3 -> " + kNewRoot + "Music\\One.mp3: planned",
                   "C:\\Music\\Two.mp3 -> " + kNewRoot + "Music\\Two.mp3: planned"}));
  EXPECT_FALSE(machines.to->HasFile(move.songs[0].place));
  EXPECT_EQ(LineOf(move.playlists[0]), "C:\\Music\\Mix.m3u of type 3: restored");
  EXPECT_EQ(move.verification.checked, 8u);
  EXPECT_EQ(move.verification.found, 0u);
  EXPECT_TRUE(move.IsWhole());  // what was not asked for is not missing
  // A later move with them completes it.
  EXPECT_EQ(SongsIn(machines.Run())[0],
            "C:\\Music\\One.mp3 -> " + kNewRoot + "Music\\One.mp3: copied");
}

TEST_F(MovePlaylistsTest, MachinesThatCannotLinkGetCopies) {
  machines.AddMix();
  MoveOptions options;
  options.media = MediaMode::Link;
  EXPECT_EQ(machines.Run(options).songs[0].state, MovedSong::State::Copied);
}

TEST_F(MovePlaylistsTest, ASecondMoveFindsAllThereAndChangesNothing) {
  machines.AddMix();
  machines.AddWeb();
  const MoveResult first = machines.Run();
  const Contents before = ContentsOf(*machines.to);
  machines.to->Log().Clear();
  const MoveResult second = machines.Run();
  EXPECT_EQ(ContentsOf(*machines.to), before);
  Lines writes = WritesOf(*machines.to);
  std::erase(writes,
             "Settings.Write " + kNewRoot + "KVs\\Restored.txt");  // with what it held before
  EXPECT_EQ(writes, Lines());
  EXPECT_EQ(CountOf(second, MovedPlaylist::State::AlreadyRestored), 2u);
  for (const MovedSong& song : second.songs) EXPECT_EQ(song.state, MovedSong::State::AlreadyThere);
  for (std::size_t i = 0; i < first.playlists.size(); ++i) {
    EXPECT_EQ(second.playlists[i].natives, first.playlists[i].natives);
    EXPECT_EQ(second.playlists[i].carried, first.playlists[i].carried);
  }
  EXPECT_EQ(second.verification.found, 12u);
  EXPECT_TRUE(second.IsWhole());
}

TEST_F(MovePlaylistsTest, TheLogsOfBothMachinesAreTold) {
  machines.AddMix();
  MoveOptions options;
  options.log = true;
  const MoveResult move = machines.Run(options);
  ASSERT_EQ(move.logs.size(), 2u);
  EXPECT_EQ(move.logs[0].side, MachineSide::Old);
  EXPECT_EQ(move.logs[1].side, MachineSide::New);
  for (const MoveLog& log : move.logs) {
    EXPECT_TEXT(log.file.path, u"C:\\Norvo\\VBLog.txt");
    EXPECT_EQ(log.file.systemPath, "");
  }
  EXPECT_TRUE(machines.from->HasFile(u"C:\\Norvo\\VBLog.txt"));
  EXPECT_TRUE(machines.to->HasFile(u"C:\\Norvo\\VBLog.txt"));
}

TEST_F(MovePlaylistsTest, TheGroupRootOfAnOldMachineThatHasNoneCanBeWished) {
  machines.AddMix();
  machines.from->AddDrive(u'Z', DriveType::Fixed);
  WorkObserver nobody;
  const MoveResult move = MovePlaylists(
      {machines.from, machines.to, nullptr, nullptr, "Z:\\Norvo Media\\"}, {}, nobody);
  EXPECT_TEXT(move.playlists[0].collected, u"Z:\\Norvo Media\\KVs\\Mix.ini");
  EXPECT_FALSE(machines.from->HasFolder(u"C:\\My Documents"));
  EXPECT_TRUE(move.IsWhole());
}

}  // namespace
}  // namespace norvo
