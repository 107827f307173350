#include "move/MoveFixture.h"

namespace norvo::cli {
namespace {

/// The move to a disk, as the user meets it.
class MigrateDiskTest : public MoveTest {
 protected:
  void SetUp() override {
    MoveTest::SetUp();
    AddSong(kOne);
    WriteOld(kMix, M3u({kOne}));
  }
  fs::path On(const std::string& path) const { return fs::path(New()) / path; }
  void MakeDisk(const std::vector<std::string>& users) const {
    fs::create_directories(On("Windows"));
    for (const std::string& user : users)
      fs::create_directories(On("Users/" + user + "/Documents"));
  }
  /// The top of the disk.
  std::vector<std::string> Top() const {
    std::vector<std::string> names;
    for (const auto& item : fs::directory_iterator(New())) names.push_back(item.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  static void ExpectRefused(const Outcome& outcome, const std::string& message) {
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "norvo-playlists: " + message + '\n');
  }
};

TEST_F(MigrateDiskTest, SongsAndListsGoToTheDocumentsOfItsUserAndTheListsSayWhereTheyAre) {
  MakeDisk({"Ann"});
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "C: = " + New() + " (Windows found)\n");
  const fs::path media = On("Users/Ann/Documents/Norvo Media");
  EXPECT_EQ(ReadFile(media / "Music/One.mp3"), ReadFile(OldPlace(kOne)));
  EXPECT_TRUE(Holds(ReadFile(media / "PlayLists/WinAmp/Mix.m3u"),
                    "C:\\Users\\Ann\\Documents\\Norvo Media\\Music\\One.mp3\r\n"));
  EXPECT_TRUE(fs::exists(On("Users/Ann/Documents/Norvo PlayLists/Mix.ini")));
}

TEST_F(MigrateDiskTest, ALinkOutOfTheOldDiskIsToldAndNothingIsMissingForIt) {
  MakeDisk({"Ann"});
  fs::create_directory_symlink("/Users", OldPlace(R"(C:\Documents and Settings)"));
  const Outcome outcome = Migrate({"--quiet"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err,
            "Old machine: C:\\Documents and Settings: this link leads out of the disk, or nowhere; "
            "no such link of this disk is followed, and what it led to was not searched\n");
}

TEST_F(MigrateDiskTest, NothingElseIsMadeOnItThanTheProductsFolder) {
  MakeDisk({"Ann"});
  Migrate({"--log"});
  EXPECT_EQ(Top(), (std::vector<std::string>{"Norvo", "Users", "Windows"}));
  EXPECT_TRUE(fs::exists(On("Norvo/VBLog.txt")));
  const std::string registry = ReadFile(On("Norvo/registry.reg"));
  EXPECT_TRUE(registry.starts_with("\xFF\xFE"));
  const std::string start = "Windows Registry Editor Version 5.00\r\n";
  std::string wide = "\xFF\xFE";
  for (const char each : start) wide += {each, '\0'};
  EXPECT_TRUE(registry.starts_with(wide));
}

TEST_F(MigrateDiskTest, ADryRunWritesNothing) {
  MakeDisk({"Ann"});
  const auto before = Snapshot(New());
  const Outcome outcome = Migrate({"--dry-run", "--verbose"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, R"(C:\Users\Ann\Documents\Norvo Media\Music\One.mp3)"));
  EXPECT_EQ(Snapshot(New()), before);
}

TEST_F(MigrateDiskTest, MovingAgainBringsOnlyWhatIsNew) {
  MakeDisk({"Ann"});
  Migrate();
  const auto before = Snapshot(New());
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(Snapshot(New()), before);
}

TEST_F(MigrateDiskTest, OtherContentsMakeADiskTooAndItIsSaid) {
  WriteFile(On("Pictures/a.png"), "x");
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "C: = " + New() + " (no machine found, so it is taken as a disk)\n");
  EXPECT_EQ(Top(), (std::vector<std::string>{"My Documents", "Norvo", "Pictures"}));
}

TEST_F(MigrateDiskTest, AnEmptyFolderIsMadeAMachineAndItIsSaid) {
  fs::create_directories(New());
  EXPECT_EQ(Migrate().err,
            "C: = " + New() + "/C (the folder was empty, so a machine is made there)\n");
  // A report, or anything else that a person puts there, makes no disk of it.
  WriteFile(New() + "/My move.html", "x");
  const Outcome again = Migrate();
  EXPECT_EQ(again.err, "C: = " + New() + "/C (drives and registry.reg found)\n");
  EXPECT_EQ(again.code, 0);
  EXPECT_FALSE(fs::exists(New() + "/Norvo"));
  EXPECT_EQ(Migrate({"--quiet"}).err, "");
}

TEST_F(MigrateDiskTest, AnyFolderCanBeAnotherDriveOfTheNewMachine) {
  fs::create_directories(New());
  const Outcome outcome = Migrate({"--to-drive", "d"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "D: = " + New() + " (as asked for)\n");
  EXPECT_EQ(Top(), (std::vector<std::string>{"My Documents", "Norvo"}));
  EXPECT_TRUE(Holds(ReadFile(On("My Documents/Norvo Media/PlayLists/WinAmp/Mix.m3u")),
                    "D:\\My Documents\\Norvo Media\\Music\\One.mp3\r\n"));
}

TEST_F(MigrateDiskTest, ADriveThatCannotBeIsRefused) {
  ExpectRefused(Migrate({"--to-drive", "1"}),
                "1 is no drive. Name a letter from C to Z, such as D.");
  WriteFile(On("machine.ini"), "[Drives]\r\nC=fixed\r\n");
  ExpectRefused(Migrate({"--to-drive", "D"}),
                New() +
                    " has a machine.ini, which tells its drives. Leave --to-drive D out, or "
                    "correct machine.ini.");
}

TEST_F(MigrateDiskTest, OfSeveralUsersOneMustBeNamed) {
  MakeDisk({"Ann", "Bob"});
  const auto before = Snapshot(Root());
  ExpectRefused(Migrate(), New() +
                               " has the documents of several users: Ann, Bob. Whose are "
                               "meant? Say it with --user NAME.");
  ExpectRefused(Migrate({"--user", "Zoe"}),
                "--user Zoe: nobody of that name has a documents folder there. Those who have one: "
                "Ann, Bob.");
  EXPECT_EQ(Snapshot(Root()), before);
  EXPECT_EQ(Migrate({"--user", "bob"}).code, 0);
  EXPECT_TRUE(fs::exists(On("Users/Bob/Documents/Norvo Media/Music/One.mp3")));
  // From now on it is known.
  EXPECT_EQ(Migrate().code, 0);
  EXPECT_EQ(RunProgram({"verify", "--machine", New()}).code, 0);
}

TEST_F(MigrateDiskTest, DocumentsAndGroupRootCanBeNamed) {
  MakeDisk({"Ann", "Bob"});
  const Outcome outcome = Migrate({"--documents", "C:/Shared/", "--group-root", R"(C:\Songs)"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(fs::exists(On("Shared/Norvo PlayLists/Mix.ini")));
  EXPECT_TRUE(fs::exists(On("Songs/Music/One.mp3")));
  EXPECT_TRUE(Holds(ReadFile(On("Songs/PlayLists/WinAmp/Mix.m3u")), "C:\\Songs\\Music\\One.mp3"));
}

TEST_F(MigrateDiskTest, OfAMachineTheyCanBeNamedToo) {
  const Outcome outcome = Migrate({"--documents", R"(C:\Shared)"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(fs::exists(NewPlace(R"(C:\Shared\Norvo PlayLists\Mix.ini)")));
  EXPECT_TRUE(fs::exists(NewPlace(R"(C:\Shared\Norvo Media\Music\One.mp3)")));
}

TEST_F(MigrateDiskTest, PathsThatCannotBeAreRefusedBeforeAnythingIsMade) {
  ExpectRefused(Migrate({"--documents", "Shared"}),
                R"(--documents Shared is no full path of the new machine, such as )"
                R"(C:\Users\Ann\Documents)");
  ExpectRefused(Migrate({"--documents", R"(Q:\Shared)"}),
                R"(--documents Q:\Shared lies on drive Q:, which the new machine does not have. )"
                "Name a path on one of its drives.");
  ExpectRefused(Migrate({"--group-root", "Songs"}),
                R"(--group-root Songs is no full path of the machine, such as D:\Norvo Media\)");
  ExpectRefused(Migrate({"--group-root", R"(Q:\Songs)"}),
                R"(The group root Q:\Songs lies on drive Q:, which the machine folder does not )"
                "hold. Choose another place with --group-root PATH.");
  EXPECT_FALSE(fs::exists(New()));
}

// -------------------------------------------------------------------------- the last words ----

class NextStepTest : public MigrateDiskTest {
 protected:
  /// The registry of a machine with a player that has its settings there.
  void InstallPlayer(const fs::path& registry, const fs::path& program) const {
    WriteFile(program, "x");
    WriteFile(registry,
              "Windows Registry Editor Version 5.00\r\n\r\n"
              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App "
              "Paths\\wmplayer.exe]\r\n\"Path\"=\"C:\\\\WMP\\\\\"\r\n\r\n"
              "[HKEY_CURRENT_USER\\Software\\Microsoft\\MediaPlayer\\Player\\Settings]\r\n");
  }
};

TEST_F(NextStepTest, OfADiskTheFileToBeImportedIsNamedAsTheNewPcCallsIt) {
  MakeDisk({"Ann"});
  InstallPlayer(On("Norvo/registry.reg"), On("WMP/wmplayer.exe"));
  const std::string last =
      "Next: on the new PC, double-click C:\\Norvo\\registry.reg, or run: reg import "
      "C:\\Norvo\\registry.reg\n";
  EXPECT_FALSE(Holds(Migrate({"--dry-run"}).out, "Next:"));
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(outcome.out.ends_with(last)) << outcome.out;
  EXPECT_EQ(Migrate({"--quiet"}).out, "");
}

TEST_F(NextStepTest, OfAMachineFolderTheFileIsTakenThere) {
  InstallPlayer(fs::path(New()) / "registry.reg", NewPlace(R"(C:\WMP\wmplayer.exe)"));
  const Outcome outcome = Migrate();
  EXPECT_TRUE(outcome.out.ends_with("Next: take " + New() +
                                    "/registry.reg to the new PC.\nOn the new PC, double-click "
                                    "registry.reg, or run: reg import registry.reg\n"))
      << outcome.out;
}

TEST_F(NextStepTest, OfADiskTheProgramsOwnSettingsAreToBeImportedWithoutAnyPlayer) {
  MakeDisk({"Ann"});
  EXPECT_TRUE(Holds(Migrate().out, "Next: on the new PC, double-click C:\\Norvo\\registry.reg"));
}

TEST_F(NextStepTest, OfAMachineFolderWithoutPlayersThereIsNothingToImport) {
  EXPECT_FALSE(Holds(Migrate().out, "Next:"));
}

}  // namespace
}  // namespace norvo::cli
