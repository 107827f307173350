#include <cmath>

#include "ScratchFolder.h"
#include "platform/windows/AnsiPage.h"
#include "platform/windows/WindowsPlatform.h"

namespace norvo {
namespace {

/// What the machine tells of itself, beside its disks' contents.
class MachineFactsTest : public ScratchFolder {
 protected:
  /// Days from 30 December 1899 to a moment of this machine's clock, counted by the system.
  static double DaysOf(const SYSTEMTIME& local) {
    FILETIME since1601 = {};
    EXPECT_TRUE(::SystemTimeToFileTime(&local, &since1601));
    const double ticks = since1601.dwHighDateTime * 4294967296.0 + since1601.dwLowDateTime;
    return ticks / 864e9 - 109205;
  }
};

TEST_F(MachineFactsTest, DrivesComeInLetterOrderWithTheirTypes) {
  const std::vector<Drive> drives = Files().Drives();
  DWORD present = 0;
  char16_t last = 0;
  for (const Drive& drive : drives) {
    EXPECT_LT(last, drive.letter);
    last = drive.letter;
    present |= DWORD{1} << (drive.letter - u'A');
    EXPECT_EQ(drive.type, Files().TypeOfDrive(String(1, drive.letter) + u":\\x"));
  }
  EXPECT_EQ(present, ::GetLogicalDrives());
}

TEST_F(MachineFactsTest, TheTypeOfADriveIsToldForAnyPathOnIt) {
  const String drive = Files().SystemFolder().substr(0, 2);
  EXPECT_EQ(Files().TypeOfDrive(drive), DriveType::Fixed);
  EXPECT_EQ(Files().TypeOfDrive(drive + u"\\no such folder\\a.mp3"), DriveType::Fixed);
  EXPECT_EQ(Files().TypeOfDrive(MissingDrive()), DriveType::Unknown);
  EXPECT_EQ(Files().TypeOfDrive(u"\\\\server\\share\\a.mp3"), DriveType::Network);
  EXPECT_EQ(Files().TypeOfDrive(u""), DriveType::Unknown);
}

TEST_F(MachineFactsTest, AbsolutePathNamesFollowTheTextRules) {
  EXPECT_TEXT(Files().AbsolutePathName(u"C:\\Music\\Pop\\..\\a.mp3"), u"C:\\Music\\a.mp3");
  EXPECT_TEXT(Files().AbsolutePathName(u"//server/share/a"), u"\\\\server\\share\\a");
  const String relative = Files().AbsolutePathName(u"a.mp3");
  EXPECT_TEXT(relative.substr(1), u":\\a.mp3");
}

TEST_F(MachineFactsTest, TheSystemFolderEndsInABackslash) {
  const String folder = Files().SystemFolder();
  EXPECT_TRUE(folder.ends_with(u'\\'));
  EXPECT_TRUE(Files().FolderExists(folder));
  EXPECT_TRUE(Files().FileExists(folder + u"kernel32.dll"));
}

TEST_F(MachineFactsTest, AProgramCarriesAVersion) {
  const String version = Files().FileVersion(Files().SystemFolder() + u"kernel32.dll");
  EXPECT_EQ(std::count(version.begin(), version.end(), u'.'), 3) << Utf8(version);
  EXPECT_TRUE(IsDigit(version.front()));
  EXPECT_NE(version.substr(0, 2), u"0.");
}

TEST_F(MachineFactsTest, OtherFilesHaveNoVersion) {
  Put(u"plain.dll", "plain");
  MakeFolder(u"folder");
  EXPECT_TEXT(Files().FileVersion(Path(u"plain.dll")), u"");
  EXPECT_TEXT(Files().FileVersion(Path(u"missing.dll")), u"");
  EXPECT_TEXT(Files().FileVersion(Path(u"folder")), u"");
  EXPECT_TEXT(Files().FileVersion(u"a*b"), u"");
}

TEST_F(MachineFactsTest, LocalDatesAreThoseOfTheMachinesClock) {
  SYSTEMTIME now = {};
  FILETIME moment = {};
  ::GetLocalTime(&now);
  ::GetSystemTimeAsFileTime(&moment);
  const std::int64_t ticks = std::int64_t{moment.dwHighDateTime} << 32 | moment.dwLowDateTime;
  const double days = Files().LocalDate((ticks - 116444736000000000) / 10'000'000).days;
  EXPECT_NEAR(days, DaysOf(now), 3 / 86400.0);
}

TEST_F(MachineFactsTest, LocalDatesOutsideTheCalendarAreDateZero) {
  EXPECT_EQ(Files().LocalDate(std::numeric_limits<FileTime>::max()).days, 0);
  EXPECT_EQ(Files().LocalDate(std::numeric_limits<FileTime>::min()).days, 0);
  EXPECT_EQ(Files().LocalDate(-11'644'473'601).days, 0);
}

TEST_F(MachineFactsTest, BeforeDateZeroTheFractionIsWrittenBackward) {
  // Two days that end a day before date zero, whatever the zone is.
  int pairs = 0;
  double before = Files().LocalDate(-2209161600 - 4 * 86400).days;
  for (int hour = 1; hour < 48; ++hour) {
    const double days = Files().LocalDate(-2209161600 - 4 * 86400 + hour * 3600).days;
    EXPECT_LT(days, -1);
    if (std::trunc(days) == std::trunc(before)) {
      EXPECT_NEAR(days, before - 1.0 / 24, 1e-6) << hour;
      ++pairs;
    }
    before = days;
  }
  EXPECT_GE(pairs, 44);
}

TEST_F(MachineFactsTest, TheUsersDocumentsAreCreatedAndTold) {
  const std::optional<ShellFolders::Answer> answer =
      Machine().Shell().FolderPath(5 | ShellFolders::kCreateFlag);
  ASSERT_TRUE(answer) << "shfolder.dll";
  EXPECT_EQ(answer->status, 0u);
  EXPECT_TRUE(Files().FolderExists(answer->path)) << Utf8(answer->path);
  EXPECT_TEXT(Machine().Shell().SpecialFolderPath(5), answer->path);
}

TEST_F(MachineFactsTest, AFolderThatTheShellDoesNotKnowHasNoPath) {
  constexpr std::int32_t kNone = 0x7E;
  const std::optional<ShellFolders::Answer> answer = Machine().Shell().FolderPath(kNone);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, ShellFolders::kInvalidArgumentStatus);
  EXPECT_TEXT(answer->path, u"");
  EXPECT_TEXT(Machine().Shell().SpecialFolderPath(kNone), u"");
}

TEST_F(MachineFactsTest, TheCodePageIsTheSystems) {
  EXPECT_EQ(&Machine().AnsiPage(), &SystemAnsiPage());
}

TEST_F(MachineFactsTest, TheScannerWalksTheDisks) {
  struct VisitedFolder final : ScanVisitor {
    bool EnterFolder(StringView path) override {
      folders.emplace_back(path);
      return false;
    }
    void VisitFile(StringView, StringView) override {}
    void CannotList(StringView, StringView) override {}
    std::vector<String> folders;
  } visitor;
  ASSERT_NE(Machine().Scanner(), nullptr);
  Machine().Scanner()->Scan({}, visitor);
  std::vector<String> roots;
  for (const Drive& drive : Files().Drives()) {
    if (drive.type == DriveType::Fixed) roots.push_back(String(1, drive.letter) + u":\\");
  }
  EXPECT_EQ(Utf8(visitor.folders), Utf8(roots));
}

TEST_F(MachineFactsTest, MessagesAreShownByWhomTheHostNames) {
  class Dialog final : public MessageDialog {
   public:
    void Show(StringView, StringView) override {}
  };
  Dialog dialog;
  WindowsPlatform platform;
  EXPECT_NE(&platform.Messages(), &dialog);
  platform.SetMessageDialog(dialog);
  EXPECT_EQ(&platform.Messages(), &dialog);
}

}  // namespace
}  // namespace norvo
