#include "platform/hosted/SystemPaths.h"

#include "support/TestMachine.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// The ways between a machine's paths and this system's.
class SystemPathsTest : public TestMachine {
 protected:
  SystemPathsTest() {
    Put(Disk("C/Music/Mein Lied.mp3"), "x");
    Put(Outside("disc/Track.cda"), "x");
    drives = {{u'C', DriveType::Fixed, Disk("C")}, {u'D', DriveType::CdRom, Outside("disc")}};
  }
  std::string OnMachine(const fs::path& path) {
    const std::optional<String> found = PathOnMachine(drives, path);
    return found ? Utf8(*found) : "(none)";
  }

  std::vector<HostedDrive> drives;
};

TEST_F(SystemPathsTest, AMachinePathLeadsToTheFileInWhateverCaseTheDiskSpellsIt) {
  const fs::path song = Disk("C") / "Music" / "Mein Lied.mp3";
  EXPECT_EQ(PathOnSystem(drives, u"C:\\Music\\Mein Lied.mp3"), song);
  EXPECT_EQ(PathOnSystem(drives, u"c:/MUSIC//mein lied.MP3"), song);
  EXPECT_EQ(PathOnSystem(drives, u"D:\\TRACK.CDA"), Outside("disc") / "Track.cda");
  EXPECT_EQ(PathOnSystem(drives, u"C:"), Disk("C"));
}

TEST_F(SystemPathsTest, WhatDoesNotExistYetIsSpelledAsInThePath) {
  EXPECT_EQ(PathOnSystem(drives, u"C:\\music\\New\\a.mp3"), Disk("C") / "Music" / "New" / "a.mp3");
}

TEST_F(SystemPathsTest, ADriveThatThereIsNotLeadsNowhere) {
  EXPECT_EQ(PathOnSystem(drives, u"E:\\Music"), fs::path());
  EXPECT_EQ(PathOnSystem(drives, u"http://example.com/"), fs::path());
  EXPECT_EQ(PathOnSystem(drives, u""), fs::path());
}

TEST_F(SystemPathsTest, ASystemPathIsNamedByTheDriveThatHoldsIt) {
  EXPECT_EQ(OnMachine(Disk("C/Music/Mein Lied.mp3")), "C:\\Music\\Mein Lied.mp3");
  EXPECT_EQ(OnMachine(Outside("disc/Track.cda")), "D:\\Track.cda");
}

TEST_F(SystemPathsTest, ASystemPathThroughALinkIsNamedByTheDriveThatHoldsTheFile) {
  NEEDS_LINKS();
  MakeFolderLink(Outside("disc"), Outside("link"));
  EXPECT_EQ(OnMachine(Outside("link/Track.cda")), "D:\\Track.cda");
}

TEST_F(SystemPathsTest, OfDrivesInEachOtherTheDeepestNamesIt) {
  drives.push_back({u'E', DriveType::Fixed, Disk("C/Music")});
  EXPECT_EQ(OnMachine(Disk("C/Music/Mein Lied.mp3")), "E:\\Mein Lied.mp3");
  std::swap(drives.front(), drives.back());
  EXPECT_EQ(OnMachine(Disk("C/Music/Mein Lied.mp3")), "E:\\Mein Lied.mp3");
}

TEST_F(SystemPathsTest, OutsideAllDrivesThereIsNoName) {
  Put(Outside("discs/a.mp3"), "x");
  EXPECT_EQ(OnMachine(Outside("discs/a.mp3")), "(none)");
  EXPECT_EQ(OnMachine(Outside("disc")), "(none)");
}

TEST_F(SystemPathsTest, ThePlatformTellsWhereItsPathsAre) {
  EXPECT_EQ(Machine().SystemPathOf(u"C:\\music\\mein lied.mp3"),
            fs::canonical(Disk("C/Music/Mein Lied.mp3")).string());
  EXPECT_EQ(Machine().SystemPathOf(u"Q:\\a"), "");
}

}  // namespace
}  // namespace norvo
