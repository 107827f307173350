#include <unistd.h>

#include <chrono>

#include "move/MoveFixture.h"

namespace norvo::cli {
namespace {

/// The command as the user meets it: arguments, reports, exit codes, and what it must not touch.
class MigrateCommandTest : public MoveTest {
 protected:
  void SetUp() override {
    MoveTest::SetUp();
    AddSong(kOne, {"First", "AC/DC", ""});
    AddSong(kTwo);
    WriteOld(kMix, M3u({kOne, "Two.mp3", "gone.mp3", "http://example.com/"}));
    WriteOld(R"(C:\Music\Empty.m3u)", "");
  }
  std::string Beside(const std::string& name) const { return (Root() / name).string(); }

  static void ExpectRefused(const Outcome& outcome, const std::string& message) {
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "norvo-playlists: " + message + '\n');
    EXPECT_EQ(outcome.out, "");
  }
};

// ------------------------------------------------------------------------------ wrong usage ----

TEST_F(MigrateCommandTest, BothMachinesMustBeNamed) {
  const std::string help = "\nRun norvo-playlists --help, or norvo-playlists COMMAND --help.";
  ExpectRefused(RunProgram({"migrate", "--to", New()}), "--from is required" + help);
  ExpectRefused(RunProgram({"migrate", "--from", Old()}), "--to is required" + help);
  EXPECT_FALSE(fs::exists(New()));
}

TEST_F(MigrateCommandTest, TheWaysOfBringingSongsExcludeEachOther) {
  for (const Texts& ways :
       {Texts{"--copy", "--link"}, Texts{"--link", "--no-media"}, Texts{"--no-media", "--copy"}}) {
    const Outcome outcome = Migrate(ways);
    EXPECT_EQ(outcome.code, 2) << outcome.err;
    EXPECT_TRUE(Holds(outcome.err, "excludes")) << outcome.err;
  }
  EXPECT_FALSE(fs::exists(New()));
}

TEST_F(MigrateCommandTest, AnOldMachineThatIsNotThereIsRefused) {
  const std::string absent = Beside("absent");
  ExpectRefused(RunProgram({"migrate", "--from", absent, "--to", New()}),
                absent +
                    " is no folder. Name the old machine's folder, or the folder where its disk "
                    "is mounted, with --from.");
  EXPECT_FALSE(fs::exists(New()));
}

TEST_F(MigrateCommandTest, FoldersThatLieInEachOtherAreRefused) {
  const auto before = Snapshot(Root());
  struct Row {
    Texts words;
    const char* names;
  };
  const Row rows[] = {
      {{"--from", Old(), "--to", Old()}, "--from and --to"},
      {{"--from", Old(), "--to", Old() + "/C/new"}, "--from and --to"},
      {{"--from", Old() + "/C", "--to", Old()}, "--from and --to"},
      {{"--from", Old(), "--to", Old() + "/x/.."}, "--from and --to"},
      {{"--from", Old(), "--to", New(), "--work", Old() + "/C/data"}, "--from and --work"},
      {{"--from", Old() + "/C/Music", "--to", New(), "--work", Old()}, "--from and --work"},
      {{"--from", Old(), "--to", New(), "--work", New() + "/data"}, "--to and --work"},
      {{"--from", Old(), "--to", New() + "/", "--work", New() + "/data/"}, "--to and --work"},
      {{"--from", Old(), "--to", New() + "/a", "--work", New()}, "--to and --work"}};
  for (const Row& row : rows) {
    Texts words = row.words;
    words.insert(words.begin(), "migrate");
    ExpectRefused(RunProgram(words),
                  std::string(row.names) + " lie in each other. Name folders that stand apart.");
  }
  EXPECT_EQ(Snapshot(Root()), before);
}

TEST_F(MigrateCommandTest, ALinkToTheOldMachineIsNoNewOne) {
  fs::create_directory_symlink(Old(), Beside("link"));
  ExpectRefused(RunProgram({"migrate", "--from", Old(), "--to", Beside("link")}),
                "--from and --to lie in each other. Name folders that stand apart.");
}

TEST_F(MigrateCommandTest, ADriveOfBothMachinesIsNotWrittenTo) {
  const std::string disk = Beside("disk");
  WriteFile(fs::path(disk) / "Music" / "x.m3u", "");
  WriteFile(fs::path(Old()) / "machine.ini", "[Drives]\r\nC=fixed\r\nD=fixed," + disk + "\r\n");
  WriteFile(fs::path(New()) / "machine.ini", "[Drives]\r\nC=fixed," + disk + "\r\n");
  const auto before = Snapshot(Root());
  const std::string written = "drive C of --to (" + disk + ")";
  ExpectRefused(Migrate(), "drive D of --from (" + disk + ") and " + written +
                               " lie in each other. Name folders that stand apart.");
  ExpectRefused(RunProgram({"migrate", "--from", disk, "--to", New()}),
                "--from and " + written + " lie in each other. Name folders that stand apart.");
  EXPECT_EQ(Snapshot(Root()), before);
}

TEST_F(MigrateCommandTest, ADiskThatHasMovedAlongMayBeADriveOfBothMachines) {
  const std::string disk = Beside("disk");
  WriteFile(fs::path(disk) / "Three.mp3", "third");
  WriteFile(fs::path(Old()) / "machine.ini", "[Drives]\r\nC=fixed\r\nD=fixed," + disk + "\r\n");
  WriteFile(fs::path(New()) / "machine.ini", "[Drives]\r\nC=fixed\r\nD=fixed," + disk + "\r\n");
  fs::create_directories(NewPlace("C:\\"));
  WriteOld(kMix, M3u({R"(D:\Three.mp3)"}));
  const auto before = Snapshot(disk);
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[0], "Mix")), References{kRoot + R"(Music\Three.mp3)"});
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\Three.mp3)")), "third");
  EXPECT_EQ(Snapshot(disk), before);
}

TEST_F(MigrateCommandTest, LinkingIsRefusedWhereNothingMayBeWritten) {
  const std::string message =
      "--link writes to the old disk, which counts the links of a file. Use --copy, or name a "
      "machine folder with --from and leave --work out.";
  ExpectRefused(Migrate({"--link", "--work", Beside("work")}), message);
  ExpectRefused(RunProgram({"migrate", "--from", Old() + "/C", "--to", New(), "--link"}), message);
  EXPECT_FALSE(fs::exists(New()));
}

TEST_F(MigrateCommandTest, AnotherMachineIsNoWorkFolder) {
  const std::string settings = "[Drives]\r\nC=fixed,/somewhere\r\n";
  WriteFile(fs::path(Beside("third")) / "machine.ini", settings);
  ExpectRefused(Migrate({"--work", Beside("third")}),
                Beside("third") +
                    ": holds a machine of its own. Name an empty folder, or that of an earlier "
                    "run.");
  EXPECT_EQ(ReadFile(fs::path(Beside("third")) / "machine.ini"), settings);
}

TEST_F(MigrateCommandTest, ANewMachineThatCannotBeMadeIsRefused) {
  WriteFile(Beside("file"), "x");
  const Outcome outcome = RunProgram({"migrate", "--from", Old(), "--to", Beside("file") + "/new"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(Holds(outcome.err, "file/new cannot be made a machine: ")) << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, ". Name a folder that can be written with --to.\n"));
}

TEST_F(MigrateCommandTest, ANewMachineThatMayNotBeWrittenIsRefusedAndStays) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
  fs::create_directories(New());
  fs::permissions(New(), fs::perms::owner_read | fs::perms::owner_exec);
  const Outcome outcome = Migrate();
  fs::permissions(New(), fs::perms::owner_all);
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(fs::is_empty(New()));
}

TEST_F(MigrateCommandTest, AFailureIsADocumentToo) {
  const Outcome outcome = Migrate({"--work", Old() + "/C/work", "--json"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.Document().at("exitCode"), 2);
  EXPECT_EQ(outcome.Document().at("error"),
            "--from and --work lie in each other. Name folders that stand apart.");
}

// --------------------------------------------------------------------------------- the trial ----

TEST_F(MigrateCommandTest, ADryRunMakesNoNewMachine) {
  const Outcome outcome = Migrate({"--dry-run"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_FALSE(fs::exists(New()));
  EXPECT_TRUE(Holds(outcome.out, "A trial: nothing was written on the new machine.\n"));
  EXPECT_TRUE(Holds(outcome.out, "Playlists   2: 1 to be moved in part, 1 without songs\n"))
      << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "Songs       2: 2 to be brought (1 KB)\n")) << outcome.out;
  EXPECT_FALSE(Holds(outcome.out, "Music\\AC-DC\\One.mp3"));
  EXPECT_TRUE(Holds(Migrate({"--dry-run", "--verbose"}).out, "Music\\AC-DC\\One.mp3"));
}

TEST_F(MigrateCommandTest, ADryRunWritesNothingOnAMachineThatIsThere) {
  ASSERT_EQ(Migrate().code, 0);
  WriteOld(kMix, M3u({kTwo, kOne}));
  // What a killed run has left is only taken away by a real run.
  const fs::path ledger = NewPlace(kRoot + R"(KVs\Restored.txt)");
  WriteFile(ledger, ReadFile(ledger) + "begin\tx\tC:\\x.ini\r\nnative\t" +
                        NativePath(kPlayers[0], "Mix") + "\r\n");
  const auto before = Snapshot(New());
  EXPECT_EQ(Migrate({"--dry-run"}).code, 0);
  EXPECT_EQ(Snapshot(New()), before);
}

TEST_F(MigrateCommandTest, ADryRunTellsThePlacesThatARealRunUses) {
  AddSong(R"(C:\Other\Two.mp3)");
  AddSong("C:\\Other\\Žluté.mp3");
  WriteOld(R"(C:\Other\Mix.m3u)",
           "\xEF\xBB\xBF" + M3u({"Two.mp3", "Žluté.mp3", R"(..\Music\One.mp3)"}));
  WriteNew(kRoot + R"(Music\Two.mp3)", "of the user");
  const auto planned = Moved({"--dry-run"});
  const auto moved = Moved();
  EXPECT_EQ(planned.at("dryRun"), true);
  EXPECT_EQ(moved.at("dryRun"), false);
  EXPECT_EQ(planned.at("adjustments"), moved.at("adjustments"));
  ASSERT_EQ(planned.at("media").size(), 4u);
  for (const auto& song : planned.at("media")) {
    EXPECT_EQ(song.at("outcome"), "planned");
    EXPECT_EQ(PlaceOf(moved, song.at("source")), song.at("place"));
    EXPECT_TRUE(fs::exists(NewPlace(song.at("place"))));
  }
  for (const auto& playlist : planned.at("playlists")) {
    const auto real = PlaylistOf(moved, playlist.at("path"));
    EXPECT_EQ(real.at("natives"), playlist.at("natives"));
    EXPECT_EQ(real.at("outcome"), playlist.at("outcome"));
  }
}

// -------------------------------------------------------------------------------- the reports ----

TEST_F(MigrateCommandTest, TheReportTellsWhatWasMovedAndLeftOut) {
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "");
  const std::string expected =
      "  Empty.m3u           empty\n"
      "! Mix.m3u (C:\\Music)  2 of 3 songs, 1 address\n"
      "      no such file: gone.mp3\n"
      "\n"
      "What did not come over, or not as it was\n"
      "! 1 listed file is not on the old machine\n"
      "\n"
      "Playlists   2: 1 moved in part, 1 without songs\n"
      "Songs       2: 2 brought (1 KB)\n";
  EXPECT_TRUE(outcome.out.starts_with(expected)) << outcome.out;
}

TEST_F(MigrateCommandTest, EachSongIsToldOfWhenAskedFor) {
  const Outcome outcome = Migrate({"--verbose"});
  EXPECT_TRUE(Holds(outcome.out, "      1. C:\\Music\\One.mp3 -> ")) << outcome.out;
  EXPECT_TRUE(Holds(outcome.out, "      3. http://example.com/\n")) << outcome.out;
}

TEST_F(MigrateCommandTest, AReportThatIsNotOnATerminalHasNoColours) {
  EXPECT_FALSE(Holds(Migrate().out, "\x1B"));
}

TEST_F(MigrateCommandTest, APageIsWrittenBesideTheReport) {
  const Outcome outcome = Migrate({"--report", Beside("page.html"), "--quiet"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  const std::string page = ReadFile(Beside("page.html"));
  EXPECT_TRUE(page.starts_with("<!doctype html>\n"));
  EXPECT_TRUE(page.ends_with("</html>\n"));
  EXPECT_TRUE(Holds(page, "<bdi>gone.mp3</bdi>"));
}

TEST_F(MigrateCommandTest, APageThatCannotBeWrittenIsToldBeforeTheMove) {
  for (const std::string& page : {Beside("absent") + "/page.html", Root().string()}) {
    const Outcome outcome = Migrate({"--report", page});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.starts_with("norvo-playlists: " + page + " cannot be written: "))
        << outcome.err;
    EXPECT_FALSE(fs::exists(New()));
  }
}

TEST_F(MigrateCommandTest, TheDocumentHasARecordPerPlaylistMediaFileAndAdjustment) {
  const auto moved = Moved();
  EXPECT_EQ(moved.at("command"), "migrate");
  EXPECT_EQ(moved.at("from"), Old());
  EXPECT_EQ(moved.at("to"), New());
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("leftOut"), nlohmann::json::array());
  ASSERT_EQ(moved.at("playlists").size(), 2u);
  ASSERT_EQ(moved.at("media").size(), 2u);
  ASSERT_EQ(moved.at("adjustments").size(), 2u);
  nlohmann::json natives = nlohmann::json::array();
  for (const PlayerFolder& player : kPlayers) natives.push_back(NativePath(player, "Mix"));
  const nlohmann::json items = {
      {{"outcome", "song"}, {"entry", 1}, {"song", 0}, {"source", kOne}, {"foundElsewhere", false}},
      {{"outcome", "song"}, {"entry", 2}, {"song", 1}, {"source", kTwo}, {"foundElsewhere", false}},
      {{"outcome", "leftOut"},
       {"reference", "gone.mp3"},
       {"reason", "no such file"},
       {"reasonCode", "noSuchFile"}},
      {{"outcome", "address"}, {"entry", 3}, {"reference", "http://example.com/"}}};
  const nlohmann::json expected = {
      {"path", kMix},          {"typeName", "WINAMP_M3U"},
      {"outcome", "restored"}, {"songs", 2},
      {"addresses", 1},        {"missing", 1},
      {"items", items},        {"neutralFile", R"(C:\My Documents\Norvo PlayLists\Mix.ini)"},
      {"natives", natives}};
  const auto mix = PlaylistOf(moved, kMix);
  for (const auto& [name, value] : expected.items()) EXPECT_EQ(mix.at(name), value) << name;
  EXPECT_EQ(mix.at("healed"), nlohmann::json::array());
  const auto& one = moved.at("media")[0];
  EXPECT_EQ(one.at("source"), kOne);
  EXPECT_EQ(one.at("place"), kRoot + R"(Music\AC-DC\One.mp3)");
  EXPECT_EQ(one.at("bytes"), 153);
  EXPECT_EQ(one.at("listed"), true);
  EXPECT_EQ(one.at("outcome"), "copied");
  const nlohmann::json adjustment = {{"neutralFile", R"(C:\My Documents\Norvo PlayLists\Mix.ini)"},
                                     {"entry", 1},
                                     {"key", "Artist"},
                                     {"before", "AC/DC"},
                                     {"after", "AC-DC"},
                                     {"reason", "Windows does not allow such a name"},
                                     {"reasonCode", "illegalName"}};
  EXPECT_EQ(moved.at("adjustments")[0], adjustment);
  const nlohmann::json summary = {
      {"playlists", 2}, {"restored", 1},          {"alreadyRestored", 0},
      {"noSongs", 1},   {"leftOut", 0},           {"healed", 0},
      {"songs", 2},     {"referencesChecked", 8}, {"referencesFound", 8}};
  for (const auto& [name, value] : summary.items()) {
    EXPECT_EQ(moved.at("summary").at(name), value) << name;
  }
}

TEST_F(MigrateCommandTest, QuietSaysNothingButWhatIsLeftOut) {
  const Outcome outcome = Migrate({"--quiet"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
  WriteOld(kMix, M3u({kOne, kTwo}));
  fs::remove_all(NewPlace(R"(C:\My Documents\Norvo PlayLists)"));
  WriteNew(R"(C:\My Documents\Norvo PlayLists)", "in the way");
  const Outcome second = Migrate({"--quiet"});
  EXPECT_EQ(second.code, 1);
  EXPECT_EQ(second.out, "");
  EXPECT_TRUE(second.err.starts_with(kMix + std::string(": "))) << second.err;
}

TEST_F(MigrateCommandTest, ProgressIsDrawnOnATerminalOnly) {
  std::ostringstream out;
  std::ostringstream terminal;
  cli::Run({"migrate", "--from", Old(), "--to", New()}, out, terminal, true);
  EXPECT_TRUE(Holds(terminal.str(), "\r\x1B[K")) << terminal.str();
  EXPECT_TRUE(terminal.str().ends_with("\r\x1B[K"));
  EXPECT_FALSE(Holds(Migrate().err, "\x1B"));
}

TEST_F(MigrateCommandTest, TheLogStandsOnBothMachines) {
  const Outcome outcome = Migrate({"--log"});
  EXPECT_EQ(outcome.code, 0);
  for (const std::string& machine : {Old(), New()}) {
    const fs::path log = fs::path(machine) / "C/Norvo/VBLog.txt";
    EXPECT_NE(ReadFile(log), "") << log;
    EXPECT_TRUE(Holds(outcome.err, "The log is C:\\Norvo\\VBLog.txt (" + log.string() + ")"))
        << outcome.err;
  }
}

TEST_F(MigrateCommandTest, TheDocumentNamesTheLogsOfBothMachines) {
  const std::string path = R"(C:\Norvo\VBLog.txt)";
  const nlohmann::json old = {{"machine", path}, {"system", OldPlace(path).string()}};
  const nlohmann::json made = {{"machine", path}, {"system", NewPlace(path).string()}};
  EXPECT_EQ(Moved({"--log", "--dry-run"}).at("logs"), (nlohmann::json{{"from", old}}));
  EXPECT_EQ(Moved({"--log"}).at("logs"), (nlohmann::json{{"from", old}, {"to", made}}));
  EXPECT_FALSE(Moved().contains("logs"));
}

TEST_F(MigrateCommandTest, ALogThatGoesWithATemporaryMachineIsNotInTheDocument) {
  const Outcome outcome =
      RunProgram({"migrate", "--from", Old() + "/C", "--to", New(), "--log", "--json"});
  const auto logs = outcome.Document().at("logs");
  EXPECT_FALSE(logs.contains("from"));
  EXPECT_TRUE(logs.contains("to"));
}

// ---------------------------------------------------------------------------------- the media ----

TEST_F(MigrateCommandTest, WithoutMediaOnlyThePlaylistsAreMoved) {
  const Outcome outcome = Migrate({"--no-media"});
  EXPECT_EQ(outcome.code, 0);  // as it was asked for
  EXPECT_EQ(outcome.err, "");
  EXPECT_FALSE(fs::exists(NewPlace(kRoot + "Music")));
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[2], "Mix")),
            (References{kRoot + R"(Music\AC-DC\One.mp3)", kRoot + R"(Music\Two.mp3)",
                        "http://example.com/"}));
  EXPECT_TRUE(Holds(outcome.out, "Songs       2: 2 left where they are, as you asked (1 KB)\n"))
      << outcome.out;
  // The songs can follow; the playlists are there.
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("summary").at("alreadyRestored"), 1);
  ExpectMoved("Mix", {kOne, kTwo, "http://example.com/"});
}

TEST_F(MigrateCommandTest, WithoutMediaSongsThatStandAtTheirPlacesAreFound) {
  WriteNew(kRoot + R"(Music\AC-DC\One.mp3)", ReadFile(OldPlace(kOne)));
  WriteNew(kRoot + R"(Music\Two.mp3)", ReadFile(OldPlace(kTwo)));
  EXPECT_EQ(Migrate({"--no-media"}).code, 0);
}

TEST_F(MigrateCommandTest, LinkedSongsAreSecondNamesOfTheOldOnes) {
  const auto moved = Moved({"--link"});
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "linked");
  EXPECT_TRUE(fs::equivalent(OldPlace(kOne), NewPlace(kRoot + R"(Music\AC-DC\One.mp3)")));
  EXPECT_EQ(Moved({"--link"}).at("media")[0].at("outcome"), "alreadyThere");
}

TEST_F(MigrateCommandTest, CopiesKeepTheirTimesAndAreFilesOfTheirOwn) {
  const auto time = fs::last_write_time(OldPlace(kOne)) - std::chrono::hours(24 * 365);
  fs::last_write_time(OldPlace(kOne), time);
  EXPECT_EQ(Moved({"--copy"}).at("media")[0].at("outcome"), "copied");
  const fs::path copy = NewPlace(kRoot + R"(Music\AC-DC\One.mp3)");
  EXPECT_EQ(fs::last_write_time(copy), time);
  EXPECT_FALSE(fs::equivalent(OldPlace(kOne), copy));
}

TEST_F(MigrateCommandTest, ALinkThatLeadsNowhereIsInNoSongsWay) {
  // It is no file to the machine, and nobody's to replace.
  fs::create_directories(NewPlace(kRoot + "Music"));
  fs::create_symlink("nowhere", NewPlace(kRoot + R"(Music\Two.mp3)"));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("leftOut"), Texts());
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\Two (2).mp3)")), ReadFile(OldPlace(kTwo)));
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\AC-DC\One.mp3)")), ReadFile(OldPlace(kOne)));
  EXPECT_TRUE(fs::is_symlink(NewPlace(kRoot + R"(Music\Two.mp3)")));
}

// ---------------------------------------------------------------------------- the old machine ----

TEST_F(MigrateCommandTest, OfAnOldMachineNothingChangesButTheProductsData) {
  const auto before = Snapshot(OldPlace(R"(C:\Music)"));
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(Snapshot(OldPlace(R"(C:\Music)")), before);
}

TEST_F(MigrateCommandTest, ToAFolderThatIsNoMachineNothingIsWritten) {
  const std::string disk = Old() + "/C";
  const auto before = Snapshot(Old());
  const Outcome outcome = RunProgram({"migrate", "--from", disk, "--to", New()});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(Snapshot(Old()), before);
  ExpectMoved("Mix", {kOne, kTwo, "http://example.com/"});
}

TEST_F(MigrateCommandTest, WithAWorkFolderNothingIsWrittenToAMachineEither) {
  WriteFile(fs::path(Old()) / "machine.ini", "[Drives]\r\nC=fixed\r\nD=fixed\r\nE=cdrom\r\n");
  AddSong(R"(D:\Three.mp3)");
  WriteOld(R"(D:\Other.m3u)", M3u({"Three.mp3", kOne, R"(E:\x.mp3)"}));
  const auto before = Snapshot(Old());
  for (int run = 0; run < 2; ++run) {
    const auto moved = Moved({"--work", Beside("work")});
    EXPECT_EQ(moved.at("exitCode"), 0) << moved.dump(1);
    EXPECT_EQ(moved.at("summary").at(run == 0 ? "restored" : "alreadyRestored"), 2);
    EXPECT_EQ(Snapshot(Old()), before);
  }
  ExpectMoved("Mix", {kOne, kTwo, "http://example.com/"});
  ExpectMoved("Other", {R"(D:\Three.mp3)", kOne, R"(E:\x.mp3)"});
  EXPECT_TRUE(fs::exists(fs::path(Beside("work")) / "Z/Norvo Media/KVs/Mix.ini"));
}

TEST_F(MigrateCommandTest, ADiskWithAFolderOfOneLetterIsNoMachine) {
  // Music is often kept in folders A to Z.
  const std::string disk = Old() + "/C";
  AddSong(R"(C:\A\Abba.mp3)");
  WriteOld(R"(C:\A\Letter.m3u)", M3u({R"(C:\A\Abba.mp3)", R"(..\Music\Two.mp3)"}));
  const auto before = Snapshot(Old());
  EXPECT_EQ(RunProgram({"migrate", "--from", disk, "--to", New()}).code, 0);
  EXPECT_EQ(Snapshot(Old()), before);
  ExpectMoved("Letter", {R"(C:\A\Abba.mp3)", kTwo});
}

TEST_F(MigrateCommandTest, AnOldMachineWithoutPlaylistsIsNoFailure) {
  fs::remove_all(OldPlace(R"(C:\Music)"));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("playlists"), nlohmann::json::array());
  EXPECT_EQ(moved.at("media"), nlohmann::json::array());
}

TEST_F(MigrateCommandTest, AnInterruptedFirstRunLeavesAFolderThatIsAMachineStill) {
  // Such a file may stand beside the drives.
  WriteFile(fs::path(Old()) / ".registry.reg.tmp", "torn");
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_TRUE(fs::exists(fs::path(Old()) / "registry.reg"));
}

// ---------------------------------------------------------------------------- the new machine ----

TEST_F(MigrateCommandTest, AFolderThatIsNoMachineIsMadeOne) {
  WriteFile(fs::path(New()) / "letters" / "x.txt", "of the user");
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(ReadFile(fs::path(New()) / "letters" / "x.txt"), "of the user");
  const Outcome again = RunProgram({"init", "--machine", New(), "--role", "destination", "--json"});
  EXPECT_EQ(again.code, 0) << again.err;  // it has that role, and all settings
  EXPECT_EQ(again.Document().at("written"), nlohmann::json::array());
}

TEST_F(MigrateCommandTest, AMachineKeepsTheRoleThatItHas) {
  fs::create_directories(NewPlace("C:\\"));
  ASSERT_EQ(RunProgram({"init", "--machine", New(), "--role", "source"}).code, 0);
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(RunProgram({"init", "--machine", New(), "--role", "source"}).code, 0);
}

}  // namespace
}  // namespace norvo::cli
