#include "machines/SourceFolder.h"

#include "move/MoveFixture.h"

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

}  // namespace
}  // namespace norvo
