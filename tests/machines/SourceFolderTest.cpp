#include "machines/SourceFolder.h"

#include "machines/MachineFolder.h"
#include "machines/MachineFoldersTest.h"
#include "move/MoveFixture.h"
#include "move/SetUpMachine.h"

namespace norvo {
namespace {

class SourceFolderTest : public MoveTest {
 protected:
  /// The old folder is a disk, whatever it looks like: its playlist comes, and nothing is written.
  void ExpectMovedAsDisk(const std::string& playlist) {
    const auto before = Snapshot(Old());
    EXPECT_EQ(RunProgram({"migrate", "--from", Old(), "--to", New()}).code, 0);
    EXPECT_EQ(Snapshot(Old()), before);
    EXPECT_TRUE(fs::exists(NewPlace(kRoot + R"(PlayLists\WinAmp\)" + playlist)));
  }
};

TEST_F(SourceFolderTest, MusicSortedIntoFoldersByLetterIsNoMachine) {
  WriteFile(fs::path(Old()) / "A" / "Mix.m3u", M3u({"Song.mp3"}));
  WriteFile(fs::path(Old()) / "A" / "Song.mp3", "song");
  ExpectMovedAsDisk("Mix.m3u");
}

TEST_F(SourceFolderTest, AMachineIniThatTellsOfSomethingElseMakesNoMachine) {
  WriteFile(fs::path(Old()) / "machine.ini", "[Server]\r\nName=x\r\n");
  WriteFile(fs::path(Old()) / "Music" / "Mix.m3u", M3u({"Song.mp3"}));
  WriteFile(fs::path(Old()) / "Music" / "Song.mp3", "song");
  ExpectMovedAsDisk("Mix.m3u");
}

TEST_F(SourceFolderTest, DrivesAloneAreAMachineAlsoBesideWhatAStoppedRunHasLeft) {
  AddSong(R"(C:\Music\Song.mp3)");
  WriteOld(R"(C:\Music\Mix.m3u)", M3u({"Song.mp3"}));
  WriteFile(fs::path(Old()) / ".norvo-1.tmp", "torn");
  EXPECT_EQ(RunProgram({"migrate", "--from", Old(), "--to", New()}).code, 0);
  EXPECT_TRUE(fs::exists(OldPlace(kRoot + R"(KVs\Mix.ini)")));
}

TEST_F(SourceFolderTest, ADiskMayHaveMoreDrives) {
  const fs::path second = Root() / "second";
  WriteFile(fs::path(Old()) / "Mix.m3u", M3u({R"(D:\Music\Song.mp3)"}));
  WriteFile(second / "Music" / "Song.mp3", "song");
  WriteFile(second / "Other.m3u", M3u({R"(D:\Music\Song.mp3)"}));
  const auto before = Snapshot(second.string());
  EXPECT_EQ(
      RunProgram({"migrate", "--from", Old(), "--drive", "d=" + second.string(), "--to", New()})
          .code,
      0);
  EXPECT_EQ(Snapshot(second.string()), before);
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\Song.mp3)")), "song");
  for (const char* const list : {"Mix.m3u", "Other.m3u"}) {
    EXPECT_TRUE(fs::exists(NewPlace(kRoot + R"(PlayLists\WinAmp\)" + list)));
  }
}

TEST_F(SourceFolderTest, ADriveThatIsNamedWronglyIsRefused) {
  fs::create_directories(Old() + "/Music");
  const auto refusal = [this](const std::string& drive) {
    const Outcome outcome =
        RunProgram({"migrate", "--from", Old(), "--drive", drive, "--to", New()});
    EXPECT_EQ(outcome.code, 2) << drive;
    return outcome.err;
  };
  const std::string start = "norvo-playlists: ";
  EXPECT_EQ(refusal("D"), start + "--drive D: name a letter and a folder, such as D=DIR.\n");
  EXPECT_EQ(refusal("D="), start + "--drive D=: name a letter and a folder, such as D=DIR.\n");
  const std::string gone = (Root() / "gone").string();
  EXPECT_EQ(refusal("1=" + gone), start + "1 is no drive. Name a letter from C to Z, such as D.\n");
  EXPECT_EQ(refusal("C=" + Root().string() + "/old-2"),
            start +
                "The old machine would have two drives C. Its disk is drive C; name another "
                "letter with --drive.\n");
  EXPECT_EQ(refusal("D=" + gone),
            start + gone + " is no folder. Name that of drive D with --drive D=DIR.\n");
  EXPECT_TRUE(Holds(refusal("D=" + New()), "lie in each other"));
  WriteFile(fs::path(Old()) / "machine.ini", "[Drives]\r\nC=fixed\r\n");
  EXPECT_EQ(refusal("D=" + (Root() / "x").string()),
            start +
                "The old machine tells its own drives. Leave --drive out, or name a disk with "
                "--from.\n");
}

/// What a folder is made for the move.
class SourceMachineTest : public MachineFoldersTest {
 protected:
  static Lines DrivesOf(const SourceFolder& source) {
    Lines lines;
    for (const HostedDrive& drive : source.Disks()->DriveFolders()) {
      lines.push_back(std::string(1, static_cast<char>(drive.letter)) + ": " +
                      drive.folder.string());
    }
    return lines;
  }
  static FolderMove Folders(fs::path from, fs::path work) {
    FolderMove folders;
    folders.from = std::move(from);
    folders.work = std::move(work);
    return folders;
  }
  MoveError ErrorOfSource(const std::string& from, const std::string& work) {
    return ErrorOf([&] { SourceFolder(Folders(At(from), work.empty() ? fs::path() : At(work))); });
  }
};

TEST_F(SourceMachineTest, ADiskIsDriveCAndTheProductsDataGoToATemporaryDriveZ) {
  PutDisk("disk");
  const auto before = Tree(At("disk"));
  fs::path temporary;
  {
    const SourceFolder source(Folders(At("disk"), {}));
    EXPECT_TRUE(source.IsReadOnly());
    EXPECT_TRUE(source.IsTemporary());
    EXPECT_EQ(source.GroupRoot(), "Z:\\Norvo Media\\");
    const std::vector<HostedDrive> drives = source.Disks()->DriveFolders();
    ASSERT_EQ(drives.size(), 2u);
    EXPECT_EQ(drives[0].letter, u'C');
    EXPECT_EQ(drives[0].folder, At("disk"));
    EXPECT_EQ(drives[1].letter, u'Z');
    temporary = drives[1].folder;
    EXPECT_TRUE(fs::is_directory(temporary));
  }
  EXPECT_FALSE(fs::exists(temporary.parent_path()));
  EXPECT_EQ(Tree(At("disk")), before);
}

TEST_F(SourceMachineTest, AWorkFolderTakesTheProductsData) {
  PutDisk("disk");
  {
    const SourceFolder source(Folders(At("disk"), At("some/data")));
    EXPECT_TRUE(source.IsReadOnly());
    EXPECT_FALSE(source.IsTemporary());
    EXPECT_EQ(source.GroupRoot(), "Z:\\Norvo Media\\");
    EXPECT_EQ(DrivesOf(source),
              (Lines{"C: " + At("disk").string(), "Z: " + At("some/data/Z").string()}));
  }
  EXPECT_TRUE(fs::is_directory(At("some/data/Z")));
}

TEST_F(SourceMachineTest, AMachineWithAWorkFolderKeepsItsDrivesAndGetsALetterMore) {
  PutDisk("old/C");
  PutDisk("old/Z");
  const SourceFolder source(Folders(At("old"), At("work")));
  EXPECT_EQ(source.GroupRoot(), "Y:\\Norvo Media\\");
  EXPECT_EQ(DrivesOf(source), (Lines{"C: " + At("old/C").string(), "Y: " + At("work/Y").string(),
                                     "Z: " + At("old/Z").string()}));
}

TEST_F(SourceMachineTest, ADriveCThatStandsElsewhereIsADiskAndNotWrittenTo) {
  PutDisk("disk");
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed," + At("disk").string() + "\r\n");
  const auto before = Tree(At("disk"));
  {
    const SourceFolder source(Folders(At("old"), {}));
    EXPECT_TRUE(source.IsReadOnly());
    EXPECT_TRUE(source.IsTemporary());
    EXPECT_EQ(source.GroupRoot(), "Z:\\Norvo Media\\");
  }
  EXPECT_EQ(Tree(At("disk")), before);
  // Another drive may stand anywhere.
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed\r\nD=fixed," + At("disk").string() + "\r\n");
  EXPECT_FALSE(SourceFolder(Folders(At("old"), {})).IsReadOnly());
}

TEST_F(SourceMachineTest, WhoHasDecidedWhereTheDataGoIsHeeded) {
  PutDisk("disk");
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed," + At("disk").string() + "\r\nZ=fixed\r\n");
  fs::create_directories(At("old/Z"));
  SetupWishes wishes;
  wishes.groupRoot = "Z:\\Norvo Media\\";
  SetUpMachine(OpenMachineFolder(At("old")), wishes);
  const SourceFolder source(Folders(At("old"), {}));
  EXPECT_FALSE(source.IsReadOnly());
}

TEST_F(SourceMachineTest, AMachineWithoutAWorkFolderTakesItsDataItself) {
  PutDisk("old/C");
  const SourceFolder source(Folders(At("old"), {}));
  EXPECT_FALSE(source.IsReadOnly());
  EXPECT_FALSE(source.IsTemporary());
  EXPECT_EQ(source.GroupRoot(), "");
  EXPECT_EQ(DrivesOf(source), Lines{"C: " + At("old/C").string()});
}

TEST_F(SourceMachineTest, AMachineWithAllLettersHasNoneForAWorkFolder) {
  for (char letter = 'C'; letter <= 'Z'; ++letter) {
    fs::create_directories(At("old") / std::string(1, letter));
  }
  ExpectError(ErrorOfSource("old", "work"), MoveFault::NoFreeLetter, At("old").string());
  EXPECT_FALSE(fs::exists(At("work")));
  EXPECT_FALSE(SourceFolder(Folders(At("old"), {})).IsReadOnly());
}

TEST_F(SourceMachineTest, AWorkFolderThatHoldsAnotherMachineIsRefusedAndLeftAsItIs) {
  PutDisk("disk");
  PutDisk("drives/C");
  Put(At("settings/machine.ini"), "[Drives]\r\nC=fixed\r\n");
  for (const char* const work : {"drives", "settings"}) {
    const auto before = Tree(At(work));
    ExpectError(ErrorOfSource("disk", work), MoveFault::WorkTaken, At(work).string());
    EXPECT_EQ(Tree(At(work)), before) << work;
  }
}

TEST_F(SourceMachineTest, AWorkFolderOfAnEarlierRunIsTakenAgain) {
  PutDisk("disk");
  { const SourceFolder source(Folders(At("disk"), At("work"))); }
  Put(At("work/Z/Norvo Media/KVs/Mix.ini"), "of the earlier run");
  const SourceFolder source(Folders(At("disk"), At("work")));
  EXPECT_EQ(Get(At("work/Z/Norvo Media/KVs/Mix.ini")), "of the earlier run");
}

TEST_F(SourceMachineTest, AWorkFolderOfAnEarlierVersionWithLinksIsTaken) {
  PutDisk("disk");
  Put(At("work/machine.ini"),
      "; Made anew by each run of norvo-playlists.\r\n[Drives]\r\nC=fixed\r\n");
  fs::create_directory_symlink(At("disk"), At("work/C"));
  const auto before = Tree(At("disk"));
  const SourceFolder source(Folders(At("disk"), At("work")));
  EXPECT_EQ(DrivesOf(source), (Lines{"C: " + At("disk").string(), "Z: " + At("work/Z").string()}));
  EXPECT_EQ(Tree(At("disk")), before);
}

TEST_F(SourceMachineTest, WhatAStopHasLeftOfThoseSettingsIsNoMachine) {
  PutDisk("disk");
  const std::string settings =
      "; Made anew by each run of norvo-playlists.\r\n[Drives]\r\nC=fixed\r\n";
  for (std::size_t size = 0; size <= settings.size(); ++size) {
    Put(At("work/machine.ini"), settings.substr(0, size));
    EXPECT_EQ(SourceFolder(Folders(At("disk"), At("work"))).GroupRoot(), "Z:\\Norvo Media\\")
        << size;
  }
}

TEST_F(SourceMachineTest, ALinkInPlaceOfThoseSettingsIsNotWrittenThrough) {
  PutDisk("disk");
  fs::create_directories(At("work"));
  fs::create_symlink(At("elsewhere"), At("work/machine.ini"));
  EXPECT_EQ(SourceFolder(Folders(At("disk"), At("work"))).GroupRoot(), "Z:\\Norvo Media\\");
  EXPECT_FALSE(fs::exists(At("elsewhere")));
}

TEST_F(SourceMachineTest, AWorkFolderWithSettingsThatAreNoFileIsRefused) {
  PutDisk("disk");
  fs::create_directories(At("work/machine.ini"));
  ExpectError(ErrorOfSource("disk", "work"), MoveFault::SettingsNotRead,
              At("work/machine.ini").string(), "it is no file");
}

TEST_F(SourceMachineTest, LinksAloneAreNoMachineOfTheWorkFolder) {
  PutDisk("disk");
  fs::create_directories(At("work"));
  fs::create_directory_symlink(At("disk"), At("work/C"));
  EXPECT_EQ(SourceFolder(Folders(At("disk"), At("work"))).GroupRoot(), "Z:\\Norvo Media\\");
}

TEST_F(SourceMachineTest, AnEmptyFolderIsRefusedSinceADiskMayNotBeMounted) {
  fs::create_directories(At("empty"));
  ExpectError(ErrorOfSource("empty", {}), MoveFault::EmptyFolder, At("empty").string());
}

TEST_F(SourceMachineTest, WhatIsNoFolderIsRefused) {
  Put(At("file"), "");
  ExpectError(ErrorOfSource("none", {}), MoveFault::NoFolder, At("none").string());
  ExpectError(ErrorOfSource("file", {}), MoveFault::NoFolder, At("file").string());
}

TEST_F(SourceMachineTest, AWorkFolderThatCannotBeMadeIsRefusedWithTheReason) {
  constexpr const char* kInTheWay = "something else stands where it or its folder should";
  PutDisk("disk");
  Put(At("file"), "");
  ExpectError(ErrorOfSource("disk", "file/work"), MoveFault::WorkNotCreated,
              At("file/work").string(), kInTheWay);
  Put(At("work/Z"), "a file");
  ExpectError(ErrorOfSource("disk", "work"), MoveFault::WorkNotCreated, At("work/Z").string(),
              kInTheWay);
}

}  // namespace
}  // namespace norvo
