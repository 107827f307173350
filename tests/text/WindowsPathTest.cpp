#include "text/WindowsPath.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(WindowsPath, ADriveIsALatinLetterAndAColon) {
  for (const StringView path : {u"C:", u"c:\\x", u"Z:x", u"a:"}) {
    EXPECT_TRUE(HasDrive(path)) << Utf8(path);
  }
  for (const StringView path : {u"", u"C", u":", u"1:\\", u"Ä:\\", u"\\C:", u"@:", u"[:", u"::"}) {
    EXPECT_FALSE(HasDrive(path)) << Utf8(path);
  }
}

TEST(WindowsPath, BothSlashesSeparate) {
  EXPECT_TRUE(IsSeparator(u'\\'));
  EXPECT_TRUE(IsSeparator(u'/'));
  EXPECT_FALSE(IsSeparator(u':'));
}

struct PathRow {
  StringView path;
  StringView expected;
};

TEST(WindowsPath, TheDriveNameIsTheDriveOrTheShare) {
  constexpr PathRow kPaths[] = {{u"C:\\a\\b", u"C:"},
                                {u"c:a", u"c:"},
                                {u"\\\\server\\share\\a", u"\\\\server\\share"},
                                {u"\\\\server\\share", u"\\\\server\\share"},
                                {u"//server/share/a", u"//server/share"},
                                {u"\\\\server", u"\\\\server"},
                                {u"\\a", u""},
                                {u"a\\b", u""},
                                {u"", u""}};
  for (const PathRow& row : kPaths)
    EXPECT_TEXT(DriveName(row.path), row.expected) << Utf8(row.path);
}

TEST(WindowsPath, TheLastComponentFollowsTheLastSeparator) {
  constexpr PathRow kPaths[] = {{u"C:\\a\\b.mp3", u"b.mp3"}, {u"C:/a/b", u"b"}, {u"C:\\a/b", u"b"},
                                {u"C:\\a\\", u""},           {u"a", u"a"},      {u"", u""}};
  for (const PathRow& row : kPaths)
    EXPECT_TEXT(LastComponent(row.path), row.expected) << Utf8(row.path);
}

TEST(WindowsPath, TheParentHasNoSeparatorAtItsEndButADrivesRoot) {
  constexpr PathRow kPaths[] = {
      {u"C:\\a\\b", u"C:\\a"}, {u"C:\\a", u"C:\\"}, {u"C:\\", u"C:\\"}, {u"C:/a", u"C:/"},
      {u"C:\\a\\", u"C:\\a"},  {u"a\\b", u"a"},     {u"a", u""},        {u"", u""}};
  for (const PathRow& row : kPaths)
    EXPECT_TEXT(ParentFolder(row.path), row.expected) << Utf8(row.path);
}

TEST(WindowsPath, PointsAndBlanksAtTheEndOfANameDoNotMatter) {
  EXPECT_EQ(WithoutTrail(u"a.b. . "), u"a.b");
  EXPECT_EQ(WithoutTrail(u" .a"), u" .a");
  EXPECT_EQ(WithoutTrail(u". ."), u"");
}

TEST(WindowsPath, AbsolutePathsAreMadeAsWindowsMakesThem) {
  constexpr PathRow kPaths[] = {
      {u"C:\\Music\\a.mp3", u"C:\\Music\\a.mp3"},
      {u"C:\\Music\\Pop\\..\\a.mp3", u"C:\\Music\\a.mp3"},
      {u"C:\\Music\\.\\a.mp3", u"C:\\Music\\a.mp3"},
      {u"C:\\..\\..\\a.mp3", u"C:\\a.mp3"},
      {u"C:\\Music\\..", u"C:\\"},
      {u"C:\\Music\\Pop\\..", u"C:\\Music"},
      {u"C:\\Music\\Pop\\..\\", u"C:\\Music\\"},
      {u"C:/Music/Pop/a.mp3", u"C:\\Music\\Pop\\a.mp3"},
      {u"C:\\Music\\\\a.mp3", u"C:\\Music\\a.mp3"},
      {u"C:\\Music\\a.mp3. .", u"C:\\Music\\a.mp3"},
      {u"C:\\Music\\a ", u"C:\\Music\\a"},
      {u"C:\\Music\\ a", u"C:\\Music\\ a"},
      {u"C:\\Music\\.hidden", u"C:\\Music\\.hidden"},
      {u"C:\\Music\\..hidden", u"C:\\Music\\..hidden"},
      {u"C:\\Music\\", u"C:\\Music\\"},
      {u"C:\\Music\\.\\", u"C:\\Music\\"},
      {u"C:\\", u"C:\\"},
      {u"C:", u"C:\\"},
      {u"", u"D:\\"},
      {u"\\a.mp3", u"D:\\a.mp3"},
      {u"a.mp3", u"D:\\a.mp3"},
      {u"..\\a.mp3", u"D:\\a.mp3"},
      {u"\\\\server\\share\\x\\..\\a", u"\\\\server\\share\\a"},
      {u"\\\\server\\share\\..\\..\\a", u"\\\\server\\share\\a"},
      {u"//server/share/a", u"\\\\server\\share\\a"},
      {u"c:\\MUSIC\\a", u"c:\\MUSIC\\a"},
  };
  for (const PathRow& row : kPaths) {
    EXPECT_TEXT(AbsolutePath(row.path, u"D:"), row.expected) << Utf8(row.path);
  }
}

struct AboveRow {
  StringView path;
  std::vector<StringView> folders;
};

TEST(WindowsPath, TheFoldersAboveAPathComeFromTheRootOutwards) {
  const AboveRow rows[] = {
      {u"", {}},
      {u"a", {}},
      {u"C:", {}},
      {u"C:\\", {u"C:\\"}},
      {u"C:\\a", {u"C:\\"}},
      {u"C:\\a\\b\\c", {u"C:\\", u"C:\\a", u"C:\\a\\b"}},
      {u"C:\\a\\", {u"C:\\", u"C:\\a"}},
      {u"C:/a\\b", {u"C:/a\\"}},
      {u"C:\\\\a", {u"C:\\", u"C:\\"}},
      {u"\\a\\b", {u"\\a"}},
      {u"\\\\server\\share\\a", {u"\\", u"\\\\server", u"\\\\server\\share"}},
  };
  for (const AboveRow& row : rows) EXPECT_EQ(FoldersAbove(row.path), row.folders) << Utf8(row.path);
}

TEST(WindowsPath, AnAbsolutePathStaysAsItIs) {
  for (const StringView path :
       {u"C:\\a\\..\\b..\\c. ", u"/x//y/", u"C:\\", u"\\\\s\\t\\u.", u"C:\\. .\\x"}) {
    const String once = AbsolutePath(path, u"C:");
    EXPECT_TEXT(AbsolutePath(once, u"C:"), once) << Utf8(path);
  }
}

TEST(WindowsPath, NoPathLeadsOutOfItsDrive) {
  constexpr StringView kPieces[] = {u"..", u".", u"a", u"b.c", u"\\", u"/", u" ", u"...", u"\\\\"};
  std::mt19937 random(20030514);
  for (int i = 0; i < 20000; ++i) {
    String path = u"C:\\";
    for (std::size_t pieces = random() % 12; pieces > 0; --pieces) {
      path += kPieces[random() % std::size(kPieces)];
    }
    const String full = AbsolutePath(path, u"D:");
    ASSERT_TRUE(full.starts_with(u"C:\\")) << Utf8(path);
    ASSERT_EQ(full.find(u'/'), String::npos) << Utf8(path);
    ASSERT_EQ(full.find(u"\\\\"), String::npos) << Utf8(path) << " gives " << Utf8(full);
    ASSERT_EQ((full + u"\\").find(u"\\..\\"), String::npos)
        << Utf8(path) << " gives " << Utf8(full);
  }
}

TEST(WindowsPath, VeryDeepPathsAreResolved) {
  String path = u"C:";
  for (int i = 0; i < 20000; ++i) path += u"\\a\\..";
  EXPECT_TEXT(AbsolutePath(path + u"\\b", u"C:"), u"C:\\b");
}

TEST(WindowsPath, AnAbsolutePathIsOneThatMakingItAbsoluteLeavesAlone) {
  std::uint32_t state = 1;
  for (int round = 0; round < 20'000; ++round) {
    String path = u"C:\\";
    for (std::uint32_t left = (state >> 24) % 24; left > 0; --left) {
      state = state * 1664525u + 1013904223u;
      constexpr StringView kUnits = u"\\./ abcdefghijklm";
      path += kUnits[(state >> 16) % kUnits.size()];
    }
    state = state * 1664525u + 1013904223u;
    if (IsAbsolutePath(path)) {
      EXPECT_TEXT(AbsolutePath(path, u"D:"), path);
    } else {
      // A name that begins with a point is taken for one that may mean a folder.
      const bool isDoubtful = path.find(u"\\.") != String::npos;
      EXPECT_TRUE(isDoubtful || AbsolutePath(path, u"D:") != path) << round;
    }
  }
}

}  // namespace
}  // namespace norvo
