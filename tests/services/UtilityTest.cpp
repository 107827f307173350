#include "services/Utility.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

using namespace Utility;

constexpr StringView kAppPath =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\winamp.exe";

class UtilityTest : public LibraryTest {
 protected:
  void SetAppPath(StringView path) {
    platform->SetRegistry(Hive::LocalMachine, kAppPath, u"Path", String(path));
  }
  void SetCommand(StringView command) {
    platform->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                          String(command));
  }
};

TEST_F(UtilityTest, ABackslashIsAddedUnlessThereIsOne) {
  EXPECT_TEXT(AddBackslash(u"C:\\a"), u"C:\\a\\");
  EXPECT_TEXT(AddBackslash(u"C:\\a\\"), u"C:\\a\\");
  EXPECT_TEXT(AddBackslash(u"C:\\a\\\\"), u"C:\\a\\\\");
  EXPECT_TEXT(AddBackslash(u"C:/a/"), u"C:/a/\\");
  EXPECT_TEXT(AddBackslash(u""), u"\\");
}

TEST_F(UtilityTest, TheExtensionFollowsTheLastPoint) {
  EXPECT_TEXT(GetExtension(u"a.b.c"), u"c");
  EXPECT_TEXT(GetExtension(u"abc"), u"");
  EXPECT_TEXT(GetExtension(u"abc."), u"");
  EXPECT_TEXT(GetExtension(u".m3u"), u"m3u");
  EXPECT_TEXT(GetExtension(u""), u"");
  EXPECT_TEXT(GetExtension(u"C:\\a.b\\c"), u"b\\c");
}

struct Replacement {
  StringView text;
  StringView from;
  StringView to;
  Compare compare;
  StringView expected;
};

TEST_F(UtilityTest, EachCharacterIsReplacedByItsPartner) {
  constexpr Replacement kRows[] = {
      {u"", u"abc", u"xyz", Compare::Binary, u""},
      {u"abcd", u"abcd", u"xy", Compare::Binary, u"xyyy"},
      {u"dcba", u"abcd", u"xy", Compare::Binary, u"yyyx"},
      {u"abc", u"ab", u"xyz", Compare::Binary, u"xyc"},
      {u"abc", u"", u"xyz", Compare::Binary, u"abc"},
      {u"abc", u"", u"", Compare::Text, u"abc"},
      {u"abcabc", u"b", u"", Compare::Binary, u"acac"},
      {u"aAbB", u"ab", u"xy", Compare::Binary, u"xAyB"},
      {u"aAbB", u"ab", u"xy", Compare::Text, u"xxyy"},
      {u"äÄ", u"Ä", u"o", Compare::Text, u"oo"},
      {u"äÄ", u"Ä", u"o", Compare::Binary, u"äo"},
      {u"a", u"aa", u"xy", Compare::Binary, u"x"},
      {u"ab", u"ab", u"ba", Compare::Binary, u"ba"},
      {u"日本", u"本", u"x", Compare::Text, u"日x"},
  };
  for (const Replacement& row : kRows) {
    EXPECT_TEXT(ReplaceChars(row.text, row.from, row.to, row.compare), row.expected)
        << Utf8(row.text) << ", " << Utf8(row.from) << ", " << Utf8(row.to);
  }
}

struct Cleaned {
  StringView text;
  StringView expected;
};

TEST_F(UtilityTest, NamesAreCleanedForPaths) {
  constexpr Cleaned kRows[] = {
      {u"My_List (live).m3u", u"My List livem3u"},
      {u"a%20b", u"a20b"},
      {u"(){}[]=+|*<>#@!$%~^`:;?.,'", u""},
      {u"a-b & c\\d/e\"f", u"a-b & c\\d/e\"f"},
      {u"__", u"  "},
      {u"Größe", u"Größe"},
      {u"", u""},
  };
  for (const Cleaned& row : kRows) {
    String text(row.text);
    EXPECT_TEXT(CleanString(text), row.expected) << Utf8(row.text);
    EXPECT_TEXT(text, row.expected) << Utf8(row.text);
  }
}

TEST_F(UtilityTest, TheProgramFolderIsALocalPathWithABackslash) {
  EXPECT_TEXT(GetAppPath(component, u"winamp.exe"), u"");
  constexpr Cleaned kRows[] = {{u"C:\\Winamp", u"C:\\Winamp\\"},
                               {u"C:\\Winamp\\", u"C:\\Winamp\\"},
                               {u"C:\\", u"C:\\"},
                               {u"C:", u""},
                               {u"", u""},
                               {u"\"C:\\Winamp\"", u""},
                               {u"\\\\server\\Winamp", u""}};
  for (const Cleaned& row : kRows) {
    SetAppPath(row.text);
    EXPECT_TEXT(GetAppPath(component, u"WINAMP.exe"), row.expected) << Utf8(row.text);
  }
  EXPECT_TEXT(GetAppPath(component, u"other.exe"), u"");
  EXPECT_TRUE(log.empty());
}

TEST_F(UtilityTest, TheOpeningProgramsFolderComesFromItsCommand) {
  EXPECT_TEXT(GetShellOpenFolder(component, u"Winamp.File", u"winamp.exe"), u"");
  constexpr Cleaned kRows[] = {
      {u"C:\\Program Files\\Winamp\\WINAMP.EXE \"%1\"", u"C:\\Program Files\\Winamp\\"},
      {u"C:\\winamp.exe", u"C:\\"},
      {u"C:\\winamp.exe\\winamp.exe", u"C:\\"},
      {u"\"C:\\Winamp\\winamp.exe\" \"%1\"", u""},
      {u"winamp.exe \"%1\"", u""},
      {u"C:\\Other\\player.exe", u""},
      {u"", u""}};
  for (const Cleaned& row : kRows) {
    SetCommand(row.text);
    EXPECT_TEXT(GetShellOpenFolder(component, u"winamp.file", u"winamp.exe"), row.expected)
        << Utf8(row.text);
  }
}

TEST_F(UtilityTest, ValuesOfAnotherTypeAreMissing) {
  platform->SetRegistry(Hive::LocalMachine, kAppPath, u"Path", std::int32_t{1});
  EXPECT_TEXT(GetAppPath(component, u"winamp.exe"), u"");
}

TEST_F(UtilityTest, FilesAreDeletedEvenWhenReadOnly) {
  platform->AddFile(u"C:\\a.txt", "x");
  platform->Files().SetReadOnly(u"C:\\a.txt");
  DeleteFileForced(component, u"C:\\a.txt");
  EXPECT_FALSE(platform->HasFile(u"C:\\a.txt"));
  EXPECT_NO_THROW(DeleteFileForced(component, u"C:\\a.txt"));
  EXPECT_NO_THROW(DeleteFileForced(component, u""));
}

TEST_F(UtilityTest, AFilesSizeIsInBytes) {
  platform->AddFile(u"C:\\a.mp3", "12345");
  platform->AddFile(u"C:\\empty", "");
  EXPECT_EQ(GetFileSize(component, u"C:\\a.mp3"), 5);
  EXPECT_EQ(GetFileSize(component, u"C:\\empty"), 0);
  EXPECT_TRUE(log.empty());
}

TEST_F(UtilityTest, TheSizeOfABadPathIsZeroAndLogged) {
  EXPECT_EQ(GetFileSize(component, u""), 0);
  EXPECT_EQ(GetFileSize(component, StringView(u"C:\\a\0b", 6)), 0);
  const std::string expected =
      "GetFileSize was passed an empty string or a string with bad data, unable to post size!";
  EXPECT_EQ(Utf8(log), (Lines{expected, expected}));
}

TEST_F(UtilityTest, AnyOtherFailureOfTheSizeIsZeroAndLoggedWithThePath) {
  platform->AddFile(u"C:\\a.mp3", "12345");
  EXPECT_EQ(GetFileSize(component, u"C:\\missing.mp3"), 0);
  platform->FailOn(u"FactsOf", 1, error::kDeviceInputOutput);
  EXPECT_EQ(GetFileSize(component, u"C:\\a.mp3"), 0);
  EXPECT_EQ(Utf8(log),
            (Lines{"GetFileSize threw an exception: File not found, For file: C:\\missing.mp3",
                   "GetFileSize threw an exception: Device I/O error, For file: C:\\a.mp3"}));
}

TEST_F(UtilityTest, TheMachineRoleIsThreeUnlessItCanBeRead) {
  const String key = String(kBaseKey) + u"\\KVS";
  EXPECT_EQ(GetMachineRole(component), role::kNeither);
  platform->SetRegistry(Hive::LocalMachine, key, u"mode", String(u"0"));
  EXPECT_EQ(GetMachineRole(component), role::kNeither);
  platform->SetRegistry(Hive::LocalMachine, key, u"mode", std::int32_t{0});
  EXPECT_EQ(GetMachineRole(component), role::kSource);
  platform->SetRegistry(Hive::CurrentUser, key, u"MODE", std::int32_t{1});
  EXPECT_EQ(GetMachineRole(component), role::kDestination);
}

TEST_F(UtilityTest, FailuresOfTheRegistryGiveTheNeutralValueWithoutAWord) {
  platform->ConfigureProduct();
  SetAppPath(u"C:\\Winamp");
  SetCommand(u"C:\\Winamp\\winamp.exe");
  for (const StringView operation : {u"Registry.KeyExists", u"Registry.Read"}) {
    platform->FailOn(operation, 1, error::kPermissionDenied);
    EXPECT_TEXT(GetAppPath(component, u"winamp.exe"), u"");
    platform->FailOn(operation, 1, error::kPermissionDenied);
    EXPECT_TEXT(GetShellOpenFolder(component, u"Winamp.File", u"winamp.exe"), u"");
    platform->FailOn(operation, 1, error::kPermissionDenied);
    EXPECT_EQ(GetMachineRole(component), role::kNeither);
  }
  platform->FailOn(u"Product.BaseKey", 1, error::kCannotCreateObject);
  EXPECT_EQ(GetMachineRole(component), role::kNeither);
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace norvo
