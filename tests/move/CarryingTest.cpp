#include "move/MixFixture.h"
#include "platform/files/TemporaryFile.h"

namespace norvo {
namespace {

/// What is written on the new machine, and what a further run does there.
class CarryingTest : public MixTest {
 protected:
  /// What tells of all that was moved.
  static bool IsGrowing(const std::string& path) {
    return path.ends_with("Restored.txt") || path.ends_with("RestoredCopies.txt");
  }
  /// A neutral file of somebody else, with an address and nothing more.
  static std::string NeutralFile(const std::string& name, const std::string& address) {
    return "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + name +
           "\r\nPlaylistType=3\r\nOriginalFileName=" + name +
           ".m3u\r\nTotalSongs=1\r\n\r\n[Entry 1 Properties]\r\nSourceURL=" + address +
           "\r\nURLType=9\r\n";
  }
};

TEST_F(CarryingTest, ASecondRunChangesNothing) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_EQ(again.at("summary").at("alreadyRestored"), 1);
  EXPECT_EQ(again.at("summary").at("restored"), 0);
  EXPECT_EQ(again.at("playlists")[0].at("outcome"), "alreadyRestored");
  EXPECT_EQ(again.at("playlists")[0].at("natives").size(), 4u);
  EXPECT_EQ(again.at("media")[0].at("outcome"), "alreadyThere");
  EXPECT_EQ(Snapshot(New()), tree);
}

TEST_F(CarryingTest, AChangedPlaylistIsMovedBesideTheFirst) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  WriteOld(kMix, M3u({kTwo}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {kOne, kTwo});
  ExpectMoved("Mix1", {kTwo});
  for (const auto& [path, bytes] : tree) {
    if (IsGrowing(path) || fs::is_directory(path)) continue;
    EXPECT_EQ(ReadFile(path), bytes) << path;
  }
}

TEST_F(CarryingTest, TwoOldMachinesMeetOnOneNew) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  WriteOld(kOne, "another song of that name");
  WriteOld(kMix, "#EXTM3U\r\nC:\\Music\\Two.mp3\r\nC:\\Music\\One.mp3\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaceOf(moved, kOne), kRoot + R"(Music\One (2).mp3)");
  ExpectMoved("Mix1", {kTwo, kOne});
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[0], "Mix"))[0], kRoot + R"(Music\One.mp3)");
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\One.mp3)")), std::string("The song ") + kOne);
}

TEST_F(CarryingTest, ANeutralFileOfThatNameIsNeverReplaced) {
  const std::string there = R"(C:\My Documents\Norvo PlayLists\Mix.ini)";
  WriteNew(there, "of the user");
  WriteNew(R"(C:\My Documents\Norvo PlayLists\Mix (2).ini\inside.txt)", "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("playlists")[0].at("neutralFile"),
            R"(C:\My Documents\Norvo PlayLists\Mix (3).ini)");
  EXPECT_EQ(ReadFile(NewPlace(there)), "of the user");
  ExpectMoved("Mix", {kOne, kTwo});
}

TEST_F(CarryingTest, NativePlaylistsOfThatNameAreNeverReplaced) {
  const std::string there = NativePath(kPlayers[1], "Mix");
  WriteNew(there, "of the user");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(ReadFile(NewPlace(there)), "of the user");
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[1], "Mix1")).size(), 2u);
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[0], "Mix")).size(), 2u);
}

TEST_F(CarryingTest, OtherNeutralFilesAreNotOfThisMove) {
  WriteNew(R"(C:\My Documents\Older\Radio.ini)", NeutralFile("Radio", "http://example.com/"));
  WriteNew(R"(C:\My Documents\desktop.ini)", "[.ShellClassInfo]\r\nx=1\r\n");
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_FALSE(Holds(outcome.err, ".ini")) << outcome.err;
  ExpectMoved("Mix", {kOne, kTwo});
  for (const PlayerFolder& player : kPlayers) {
    EXPECT_FALSE(fs::exists(NewPlace(NativePath(player, "Radio"))));
  }
}

TEST_F(CarryingTest, TheDocumentsMayStandElsewhere) {
  WriteFile(fs::path(New()) / "machine.ini",
            "[Drives]\r\nC=fixed\r\nD=fixed\r\n[ShellFolders]\r\n5=D:\\Papers\r\n");
  fs::create_directories(NewPlace("C:\\"));
  fs::create_directories(NewPlace("D:\\"));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("playlists")[0].at("neutralFile"), R"(D:\Papers\Norvo PlayLists\Mix.ini)");
  EXPECT_TRUE(fs::exists(NewPlace(R"(D:\Papers\Norvo PlayLists\Mix.ini)")));
  EXPECT_FALSE(fs::exists(NewPlace(R"(C:\My Documents\Norvo PlayLists)")));
  ExpectMoved("Mix", {kOne, kTwo});
}

TEST_F(CarryingTest, WithoutADocumentsFolderNothingIsCopied) {
  WriteFile(fs::path(New()) / "machine.ini",
            "[Drives]\r\nC=fixed\r\n[ShellFolders]\r\n5=Q:\\Papers\r\n");
  fs::create_directories(NewPlace("C:\\"));
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(
      outcome.err,
      "norvo-playlists: The new machine has no documents folder, and none can be made. Name one "
      "with --documents, or in its machine.ini, section [ShellFolders], such as 5=C:\\My "
      "Documents.\n");
  EXPECT_FALSE(fs::exists(NewPlace(kRoot + "Music")));
}

/// A new machine on which two players are installed.
class PlayersTest : public CarryingTest {
 protected:
  static constexpr const char* kWinampIni = R"(C:\Programs\Winamp\Winamp.ini)";

  void SetUp() override {
    CarryingTest::SetUp();
    WriteNew(R"(C:\Programs\WMP\wmplayer.exe)", "x");
    WriteNew(kWinampIni, "[Winamp]\r\nvolume=90\r\n");
    WriteFile(fs::path(New()) / "registry.reg",
              "Windows Registry Editor Version 5.00\r\n\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App "
              "Paths\\wmplayer.exe]\r\n\"Path\"=\"C:\\\\Programs\\\\WMP\"\r\n\r\n"
              "[HKEY_CURRENT_USER\\Software\\Microsoft\\MediaPlayer\\Player\\Settings]\r\n\r\n"
              "[HKEY_CLASSES_ROOT\\Winamp.File\\shell\\open\\command]\r\n"
              "@=\"C:\\\\Programs\\\\Winamp\\\\Winamp.exe %1\"\r\n");
  }

  /// A folder where the file would be written anew, which nobody can remove as a file.
  static fs::path BlockWritingOf(const fs::path& file) {
    fs::path block = file.parent_path() / TemporaryPath(file.filename().string());
    fs::create_directories(block / "full");
    return block;
  }
  /// "setting -> value" of those that the move could not change.
  static Texts LostSettingsOf(const nlohmann::json& moved) {
    Texts lost;
    for (const auto& warning : moved.at("warnings")) {
      if (warning.at("reasonCode") != "playerNotPointed") continue;
      lost.push_back(warning.at("subject").get<std::string>() + " -> " +
                     warning.at("wanted").get<std::string>());
    }
    return lost;
  }
};

TEST_F(PlayersTest, ArePointedAtTheirFolders) {
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  const std::string key = "Software\\Microsoft\\MediaPlayer\\Player\\Settings, ";
  const std::string wmp = kRoot + R"(PlayLists\Windows Media Player)";
  const nlohmann::json expected = {
      {{"player", "Windows Media Player"}, {"place", key + "OpenDir"}, {"value", wmp}},
      {{"player", "Windows Media Player"}, {"place", key + "SaveAsDir"}, {"value", wmp}},
      {{"player", "Winamp"},
       {"place", R"(C:\Programs\Winamp\Winamp.ini, cwd)"},
       {"value", kRoot + R"(PlayLists\Winamp)"}}};
  EXPECT_EQ(moved.at("settings"), expected);
  EXPECT_TRUE(
      Holds(ReadFile(NewPlace(kWinampIni)), "volume=90\r\ncwd=" + kRoot + "PlayLists\\Winamp\r\n"));
}

TEST_F(PlayersTest, WhoseFileCannotBeWrittenAreToldAndPointedLater) {
  const std::string before = ReadFile(NewPlace(kWinampIni));
  const fs::path block = BlockWritingOf(NewPlace(kWinampIni));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(LostSettingsOf(moved),
            Texts{R"(C:\Programs\Winamp\Winamp.ini, cwd -> )" + kRoot + R"(PlayLists\Winamp)"});
  EXPECT_EQ(moved.at("settings").size(), 2u);
  EXPECT_EQ(ReadFile(NewPlace(kWinampIni)), before);
  ExpectMoved("Mix", {kOne, kTwo});
  fs::remove_all(block);
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_TRUE(Holds(ReadFile(NewPlace(kWinampIni)), "cwd=" + kRoot + "PlayLists\\Winamp\r\n"));
}

TEST_F(PlayersTest, WhoseRegistryCannotBeWrittenAreTold) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  BlockWritingOf(fs::path(New()) / "registry.reg");
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 1);
  const std::string wmp = " -> " + kRoot + R"(PlayLists\Windows Media Player)";
  const std::string key = R"(Software\Microsoft\MediaPlayer\Player\Settings, )";
  EXPECT_EQ(LostSettingsOf(again), (Texts{key + "OpenDir" + wmp, key + "SaveAsDir" + wmp}));
  EXPECT_EQ(again.at("settings").size(), 1u);
}

TEST_F(PlayersTest, WhichCannotBePointedAreAmongTheProblemsOfTheReport) {
  BlockWritingOf(NewPlace(kWinampIni));
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.out + outcome.err, "this setting of a player cannot be changed"));
}

TEST_F(CarryingTest, ASongThatWasTakenAwayIsBroughtAgain) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  fs::remove(NewPlace(kRoot + R"(Music\One.mp3)"));
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_EQ(RecordOf(again.at("media"), "source", kOne).at("outcome"), "copied");
  EXPECT_EQ(Snapshot(New()), tree);
}

TEST_F(CarryingTest, WhatALedgerCallsDoneWithoutAnyPlaylistIsDoneAgain) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  const std::string ledger = kRoot + R"(KVs\Restored.txt)";
  std::string bytes = ReadFile(NewPlace(ledger));
  for (std::size_t at = bytes.find("native\t"); at != std::string::npos;
       at = bytes.find("native\t")) {
    bytes.erase(at, bytes.find("\r\n", at) + 2 - at);
  }
  WriteNew(ledger, bytes);
  fs::remove_all(NewPlace(kRoot + "PlayLists"));
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_EQ(again.at("summary").at("restored"), 1);
  EXPECT_EQ(Snapshot(New()), tree);
}

TEST_F(CarryingTest, WhatAKilledRunLeftUnfinishedIsDoneAgain) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  const std::string ledger = kRoot + R"(KVs\Restored.txt)";
  const std::string bytes = ReadFile(NewPlace(ledger));
  const std::size_t done = bytes.find("done\r\n");
  ASSERT_NE(done, std::string::npos) << bytes;
  WriteNew(ledger, bytes.substr(0, done + 2));  // killed while it wrote that line
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_EQ(again.at("summary").at("restored"), 1);
  EXPECT_EQ(Snapshot(New()), tree);
}

TEST_F(CarryingTest, NativesThatCannotBeWrittenAreToldAndWrittenLater) {
  WriteNew(kRoot + R"(PlayLists\Sonique)", "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("playlists")[0].at("outcome"), "leftOut");
  EXPECT_EQ(moved.at("playlists")[0].at("reasonCode"), "notRestored");
  // All or nothing: the other players' playlists are taken back.
  EXPECT_FALSE(fs::exists(NewPlace(NativePath(kPlayers[0], "Mix"))));
  fs::remove(NewPlace(kRoot + R"(PlayLists\Sonique)"));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {kOne, kTwo});
}

TEST_F(CarryingTest, WithoutItsLedgerNothingIsRestoredAndTheRestIsToldAllTheSame) {
  fs::create_directories(NewPlace(kRoot + R"(KVs\Restored.txt)"));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "copied");
  EXPECT_EQ(moved.at("playlists")[0].at("outcome"), "leftOut");
  EXPECT_EQ(moved.at("playlists")[0].at("natives").size(), 0u);
  fs::remove(NewPlace(kRoot + R"(KVs\Restored.txt)"));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {kOne, kTwo});
}

TEST_F(CarryingTest, ANeutralFileThatCannotBeCarriedIsTold) {
  WriteNew(R"(C:\My Documents\Norvo PlayLists)", "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("leftOut"),
            Texts{R"(C:\Music\Mix.m3u: it cannot be written on the new machine: )"
                  R"(Path/File access error: C:\My Documents\Norvo PlayLists)"});
  EXPECT_EQ(ReadFile(NewPlace(R"(C:\My Documents\Norvo PlayLists)")), "of the user");
}

TEST_F(CarryingTest, WhatHasComeSinceChangesNothingThatWasMoved) {
  AddSong(R"(C:\Music\Three.mp3)");
  WriteOld(R"(C:\B\Mix.m3u)", "#EXTM3U\r\n#EXTINF:1,Ann - One\r\nC:\\Music\\Three.mp3\r\n");
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const auto tree = Snapshot(New());
  // A song of that name and a playlist of that name, both earlier in the scan, and more votes.
  AddSong(R"(C:\A\One.mp3)");
  WriteOld(R"(C:\A\Mix.m3u)", M3u({"One.mp3"}));
  for (const char* const name : {"V", "W"}) {
    WriteOld(std::string("C:\\A\\") + name + ".m3u",
             "#EXTM3U\r\n#EXTINF:1,Bob - One\r\nC:\\Music\\Three.mp3\r\n");
  }
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0) << again.at("leftOut").dump(1);
  EXPECT_EQ(PlaylistOf(again, kMix).at("outcome"), "alreadyRestored");
  EXPECT_EQ(PlaylistOf(again, R"(C:\B\Mix.m3u)").at("outcome"), "alreadyRestored");
  EXPECT_EQ(again.at("summary").at("restored"), 3);
  EXPECT_EQ(PlaceOf(again, R"(C:\Music\Three.mp3)"), kRoot + R"(Music\Ann\Three.mp3)");
  EXPECT_EQ(PlaceOf(again, kOne), kRoot + R"(Music\One.mp3)");
  for (const auto& [path, bytes] : tree) {
    if (IsGrowing(path) || fs::is_directory(path)) continue;
    EXPECT_EQ(ReadFile(path), bytes) << path;
  }
  EXPECT_EQ(NewFilesIn(kRoot + "Music"),
            (Texts{"Ann/Three.mp3", "One (2).mp3", "One.mp3", "Two.mp3"}));
  EXPECT_EQ(NewFilesIn(kRoot + R"(PlayLists\WinAmp)").size(), 5u);
}

TEST_F(CarryingTest, ASongThatWasChangedOnTheNewMachineStaysAndIsBroughtBesideIt) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  WriteNew(kRoot + R"(Music\One.mp3)", "a player has written another tag");
  const auto again = Moved();
  EXPECT_EQ(again.at("exitCode"), 0);
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\One.mp3)")), "a player has written another tag");
  EXPECT_EQ(PlaceOf(again, kOne), kRoot + R"(Music\One (2).mp3)");
  ExpectMoved("Mix1", {kOne, kTwo});
}

TEST_F(CarryingTest, ASongIsKnownAgainHoweverItsPathIsSpelled) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  for (const char* const name : {"V", "W"}) {
    WriteOld(std::string("C:\\A\\") + name + ".m3u",
             "#EXTM3U\r\n#EXTINF:1,Ann - One\r\nC:\\MUSIC\\One.mp3\r\n");
  }
  const auto again = Moved();
  EXPECT_EQ(again.at("media")[0].at("place"), kRoot + R"(Music\One.mp3)");
  EXPECT_EQ(PlaylistOf(again, kMix).at("outcome"), "alreadyRestored");
  EXPECT_EQ(again.at("summary").at("restored"), 2);
}

TEST_F(CarryingTest, ASongOfAnotherMachineWithTheSamePathAndSizeKeepsItsOwnPlace) {
  ASSERT_EQ(Moved().at("exitCode"), 0);
  std::string other = ReadFile(OldPlace(kOne));
  other.back() = '!';
  WriteFile(OldPlace(kOne), other);
  const auto second = Moved();
  EXPECT_EQ(PlaceOf(second, kOne), kRoot + R"(Music\One (2).mp3)");
  ExpectMoved("Mix1", {kOne, kTwo});
  for (const char* const name : {"V", "W"}) {
    WriteOld(std::string("C:\\A\\") + name + ".m3u",
             "#EXTM3U\r\n#EXTINF:1,Ann - One\r\nC:\\Music\\One.mp3\r\n");
  }
  const auto third = Moved();
  EXPECT_EQ(PlaceOf(third, kOne), kRoot + R"(Music\One (2).mp3)");
  EXPECT_EQ(PlaylistOf(third, kMix).at("outcome"), "alreadyRestored");
  EXPECT_EQ(third.at("summary").at("restored"), 2);
}

TEST_F(CarryingTest, AMovedMachineCanBeMovedOn) {
  AddSong(R"(C:\Other\One.mp3)");
  WriteOld(R"(C:\Music\Second.m3u)", M3u({R"(C:\Other\One.mp3)", "https://example.com/x"}));
  ASSERT_EQ(Moved().at("exitCode"), 0);
  const std::string third = (Root() / "third").string();
  for (const std::string outcome : {"restored", "alreadyRestored"}) {
    const auto moved = RunProgram({"migrate", "--from", New(), "--to", third, "--json"}).Document();
    EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
    EXPECT_EQ(moved.at("playlists").size(), 10u);  // two of every player and of those of today
    for (const auto& playlist : moved.at("playlists")) {
      const bool isOne = playlist.at("path").get<std::string>().ends_with(".m3u8");
      EXPECT_EQ(playlist.at("outcome"), isOne ? outcome : "skipped") << playlist.dump(1);
    }
    EXPECT_EQ(moved.at("media").size(), 3u);
  }
  for (const auto& song : fs::directory_iterator(NewPlace(kRoot + "Music"))) {
    const fs::path there = fs::path(third) / "C/My Documents/Norvo Media/Music";
    EXPECT_EQ(ReadFile(there / song.path().filename()), ReadFile(song.path()));
  }
}

}  // namespace
}  // namespace norvo
