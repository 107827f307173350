#include "services/FolderScanner.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "support/RaisedErrors.h"

namespace norvo {
namespace {

/// Notes what a scan reports, one line per call.
class Notes final : public ScanVisitor {
 public:
  bool EnterFolder(StringView path) override {
    lines.push_back("enter " + Utf8(path));
    return !EqualsIgnoreCase(path, skipped);
  }
  void VisitFile(StringView folder, StringView name) override {
    lines.push_back("file " + Utf8(folder) + " | " + Utf8(name));
  }
  void CannotList(StringView folder, StringView reason) override {
    lines.push_back("failed " + Utf8(folder) + " | " + Utf8(reason));
  }

  Lines lines;
  String skipped;
};

class FolderScannerTest : public LibraryTest {
 protected:
  static constexpr StringView kEndings[] = {u".m3u", u".pls"};

  const Lines& Scan() {
    notes.lines.clear();
    FolderScanner(platform->Files()).Scan(kEndings, notes);
    return notes.lines;
  }

  Notes notes;
};

TEST_F(FolderScannerTest, FilesComeBeforeSubFoldersInNameOrderWithoutRegardToCase) {
  for (const StringView path : {u"C:\\b.m3u", u"C:\\A.M3U", u"C:\\c\\x.pls", u"C:\\B\\y.pls",
                                u"C:\\a\\deep\\z.pls", u"C:\\a\\w.Pls"}) {
    platform->AddFile(path, "");
  }
  EXPECT_EQ(Scan(),
            (Lines{"enter C:\\", "file C:\\ | A.M3U", "file C:\\ | b.m3u", "enter C:\\a",
                   "file C:\\a | w.Pls", "enter C:\\a\\deep", "file C:\\a\\deep | z.pls",
                   "enter C:\\B", "file C:\\B | y.pls", "enter C:\\c", "file C:\\c | x.pls"}));
}

TEST_F(FolderScannerTest, OnlyFixedDrivesAreScannedInLetterOrder) {
  platform->AddDrive(u'F', DriveType::Fixed);
  platform->AddDrive(u'D', DriveType::Fixed);
  platform->AddDrive(u'A', DriveType::Removable);
  platform->AddDrive(u'E', DriveType::CdRom);
  platform->AddDrive(u'N', DriveType::Network);
  platform->AddDrive(u'R', DriveType::RamDisk);
  platform->AddDrive(u'U', DriveType::Unknown);
  EXPECT_EQ(Scan(), (Lines{"enter C:\\", "enter D:\\", "enter F:\\"}));
}

TEST_F(FolderScannerTest, OnlyFilesOfTheAskedEndingsAreReported) {
  for (const StringView path : {u"C:\\a.m3u8", u"C:\\a.mp3", u"C:\\m3u", u"C:\\.m3u"}) {
    platform->AddFile(path, "");
  }
  EXPECT_EQ(Scan(), (Lines{"enter C:\\", "file C:\\ | .m3u"}));
}

TEST_F(FolderScannerTest, AFolderThatCannotBeListedIsReportedAndTheScanGoesOn) {
  platform->AddFile(u"C:\\a\\secret.m3u", "");
  platform->AddFile(u"C:\\b\\open.m3u", "");
  platform->Files().Deny(u"C:\\a");
  EXPECT_EQ(Scan(), (Lines{"enter C:\\", "enter C:\\a", "failed C:\\a | Permission denied",
                           "enter C:\\b", "file C:\\b | open.m3u"}));
}

TEST_F(FolderScannerTest, ADriveThatCannotBeListedDoesNotEndTheScan) {
  platform->AddDrive(u'D', DriveType::Fixed);
  platform->FailOn(u"ListFolder", 1, error::kDeviceInputOutput);
  EXPECT_EQ(Scan(), (Lines{"enter C:\\", "failed C:\\ | Device I/O error", "enter D:\\"}));
}

TEST_F(FolderScannerTest, AShortageOfMemoryEndsTheScan) {
  platform->AddFile(u"C:\\a.m3u", "");
  platform->Log().RunOutOfMemoryAt(2);  // the first call asks for the drives
  EXPECT_EQ(NumberRaisedBy([&] { Scan(); }), error::kOutOfMemory);
  EXPECT_EQ(notes.lines, (Lines{"enter C:\\"}));
}

TEST_F(FolderScannerTest, ASkippedFolderIsNotListedNorAnythingBelow) {
  platform->AddFile(u"C:\\skip\\a.m3u", "");
  platform->AddFile(u"C:\\skip\\below\\b.m3u", "");
  platform->AddFile(u"C:\\take\\c.m3u", "");
  notes.skipped = u"C:\\Skip";
  EXPECT_EQ(Scan(),
            (Lines{"enter C:\\", "enter C:\\skip", "enter C:\\take", "file C:\\take | c.m3u"}));
  EXPECT_EQ(platform->Calls(u"ListFolder"), 2u);
}

TEST_F(FolderScannerTest, EveryFolderIsListedOnce) {
  for (const StringView path : {u"C:\\a\\b\\c", u"C:\\a\\d", u"C:\\e"}) platform->AddFolder(path);
  Scan();
  EXPECT_EQ(platform->Calls(u"ListFolder"), 6u);
}

TEST_F(FolderScannerTest, DeepTreesAreWalkedToTheirEnd) {
  String path = u"C:";
  for (int i = 0; i < 400; ++i) path += u"\\folder";
  platform->AddFile(path + u"\\a.m3u", "");
  const Lines& lines = Scan();
  EXPECT_EQ(lines.size(), 402u);
  EXPECT_EQ(lines.back(), "file " + Utf8(path) + " | a.m3u");
}

}  // namespace
}  // namespace norvo
