#include "platform/windows/SystemPath.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/WideText.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

std::string SystemPathOf(StringView path) {
  const std::optional<String> result = ToSystemPath(path);
  return result ? Utf8(*result) : "(nothing)";
}

TEST(SystemPathTest, APathOnADriveIsMarkedAndInFull) {
  EXPECT_EQ(SystemPathOf(u"C:\\Music\\a.mp3"), "\\\\?\\C:\\Music\\a.mp3");
  EXPECT_EQ(SystemPathOf(u"c:/Music//Pop/../a.mp3"), "\\\\?\\c:\\Music\\a.mp3");
  EXPECT_EQ(SystemPathOf(u"C:\\Music\\"), "\\\\?\\C:\\Music");
  EXPECT_EQ(SystemPathOf(u"C:\\nul"), "\\\\?\\C:\\nul") << "a name like any other";
}

TEST(SystemPathTest, ARootKeepsItsSeparator) {
  EXPECT_EQ(SystemPathOf(u"C:"), "\\\\?\\C:\\");
  EXPECT_EQ(SystemPathOf(u"C:\\"), "\\\\?\\C:\\");
  EXPECT_EQ(SystemPathOf(u"\\\\server\\share"), "\\\\?\\UNC\\server\\share\\");
}

TEST(SystemPathTest, ASharePathHasAMarkOfItsOwn) {
  EXPECT_EQ(SystemPathOf(u"\\\\server\\share\\a\\b.mp3"), "\\\\?\\UNC\\server\\share\\a\\b.mp3");
  EXPECT_EQ(SystemPathOf(u"//server/share/a"), "\\\\?\\UNC\\server\\share\\a");
}

TEST(SystemPathTest, TrailingPointsAndBlanksOfEveryNameAreDropped) {
  EXPECT_EQ(SystemPathOf(u"C:\\a. \\b .\\c.mp3. "), "\\\\?\\C:\\a\\b\\c.mp3");
  EXPECT_EQ(SystemPathOf(u"C:\\ a\\.b"), "\\\\?\\C:\\ a\\.b");
}

TEST(SystemPathTest, APathThatCanNameNothingIsNone) {
  for (const StringView path :
       {u"", u"\\\\server", u"\\\\server\\", u"\\\\", u"\\\\?\\C:\\a", u"\\\\.\\C:", u"C:\\a*.mp3",
        u"C:\\a?\\b", u"C:\\a<b", u"C:\\a>b", u"C:\\a\"b", u"C:\\a|b", u"C:\\a.mp3:stream",
        u"C:\\a\tb", u"C:\\...\\a", u"http://x/a"}) {
    EXPECT_EQ(SystemPathOf(path), "(nothing)") << Utf8(path);
  }
  EXPECT_EQ(SystemPathOf(StringView(u"C:\\a\0b", 6)), "(nothing)");
}

TEST(SystemPathTest, APathWithoutADriveStartsAtTheRootOfTheCurrentOne) {
  wchar_t current[MAX_PATH] = {};
  ASSERT_NE(::GetCurrentDirectoryW(MAX_PATH, current), 0u);
  const String drive = FromWide(current, 2);
  EXPECT_TEXT(FullPath(u"a\\..\\b.mp3"), drive + u"\\b.mp3");
  EXPECT_TEXT(FullPath(u"\\b.mp3"), drive + u"\\b.mp3");
  EXPECT_TEXT(FullPath(u"D:\\b.mp3"), u"D:\\b.mp3");
}

TEST(SystemPathTest, ANameThatAPathWouldChangeIsNotReachable) {
  EXPECT_TRUE(IsReachableName(u"a.mp3"));
  EXPECT_TRUE(IsReachableName(u" .a"));
  EXPECT_FALSE(IsReachableName(u"a."));
  EXPECT_FALSE(IsReachableName(u"a "));
  EXPECT_FALSE(IsReachableName(u"..."));
  EXPECT_FALSE(IsReachableName(u"a:b"));
}

TEST(SystemPathTest, TheUsualFormComesBack) {
  EXPECT_TEXT(FromSystemPath(u"\\\\?\\C:\\a"), u"C:\\a");
  EXPECT_TEXT(FromSystemPath(u"\\\\?\\UNC\\server\\share\\a"), u"\\\\server\\share\\a");
  EXPECT_TEXT(FromSystemPath(u"C:\\a"), u"C:\\a");
  EXPECT_TEXT(FromSystemPath(u"\\\\server\\share\\a"), u"\\\\server\\share\\a");
}

}  // namespace
}  // namespace norvo
