#include "writers/NativeNaming.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

using namespace std::string_literals;

constexpr StringView kNativeRoot = u"C:\\My Documents\\Norvo Media\\PlayLists\\";

class NativeNamingTest : public LibraryTest {
 protected:
  NativeNamingTest() { platform->ConfigureProduct(); }

  /// By name, as a script calls it.
  std::string Call(const Variant& fileName, const Variant& type) {
    std::vector<Variant> arguments{fileName, type};
    return Utf8(ToText(playlist->Call(u"GetNewPlayListPath", arguments)));
  }
  /// The path behind the destination root.
  std::string NewPath(StringView fileName, std::int32_t type = 3) {
    const std::string path = Call(String(fileName), type);
    const std::string root = Utf8(kNativeRoot);
    EXPECT_TRUE(path.starts_with(root)) << path;
    return path.substr(std::min(root.size(), path.size()));
  }

  const ObjectRef playlist = component.Create(u"PlayList");
};

struct FolderRow {
  std::int32_t type;
  const char* path;
  const char16_t* folder;
};

TEST_F(NativeNamingTest, FolderAndExtensionFollowTheType) {
  constexpr FolderRow kRows[] = {
      {1, "Windows Media Player\\Mix.asx", u"Windows Media Player"},
      {2, "Windows Media Player\\Mix.m3u", u"Windows Media Player"},
      {3, "WinAmp\\Mix.m3u", u"WinAmp"},
      {4, "WinAmp\\Mix.pls", u"WinAmp"},
      {5, "Sonique\\Mix.pls", u"Sonique"},
      {6, "MusicMatch Jukebox\\Mix.m3u", u"MusicMatch Jukebox"},
  };
  for (const FolderRow& row : kRows) {
    EXPECT_EQ(NewPath(u"Mix.old.wav", row.type), row.path);
    EXPECT_TRUE(platform->HasFolder(String(kNativeRoot) + row.folder)) << row.path;
  }
  EXPECT_EQ(platform->Files().AllFiles().size(), 1u);  // the sub-names: no file was made
  EXPECT_TRUE(log.empty());
}

TEST_F(NativeNamingTest, AnUnknownTypeHasNeitherFolderNorExtension) {
  for (const std::int32_t type : {0, 7, -1, 2147483647}) {
    EXPECT_EQ(NewPath(u"Mix.m3u", type), "\\Mix") << type;
  }
  EXPECT_TRUE(platform->HasFolder(kNativeRoot));
  platform->AddFile(String(kNativeRoot) + u"Mix", "x");
  EXPECT_EQ(NewPath(u"Mix.m3u", 0), "\\Mix1");
}

struct NativeNameRow {
  const char16_t* given;
  const char* base;
};

TEST_F(NativeNamingTest, ANameIsCutAtItsFirstPointAndCleaned) {
  constexpr NativeNameRow kRows[] = {
      {u"Mix.m3u", "Mix"},
      {u"Mix.old.m3u", "Mix"},
      {u"Mix.", "Mix"},
      {u"Mix..", "Mix"},
      {u"MIX.M3U", "MIX"},
      {u".m3u", ""},
      {u".", ""},
      {u"..\\..\\Mix.m3u", ""},
      {u"My_List (live).m3u", "My List live"},
      {u"(){}[]=+|*<>#@!$%~^`:;?,'.m3u", ""},
      {u"a%20b.m3u", "a20b"},
      {u" Mix .m3u", " Mix "},
      {u"sub\\Mix.m3u", "sub\\Mix"},
      {u"C:\\Music\\Mix.m3u", "C\\Music\\Mix"},
      {u"Größe-&-\"音楽\".m3u", "Größe-&-\"音楽\""},
  };
  for (const NativeNameRow& row : kRows) {
    EXPECT_EQ(NewPath(row.given), "WinAmp\\" + std::string(row.base) + ".m3u") << Utf8(row.given);
  }
}

TEST_F(NativeNamingTest, ANameWithoutAPointIsAnInvalidArgument) {
  for (const StringView name : {u"Mix", u"", u"C:\\Music\\Mix", u"(live)"}) {
    EXPECT_EQ(NumberRaisedBy([&] { Call(String(name), std::int32_t{3}); }), error::kInvalidArgument)
        << Utf8(name);
  }
  EXPECT_FALSE(platform->HasFolder(kNativeRoot));
}

TEST_F(NativeNamingTest, NumbersPileUpUntilNoFileHasTheName) {
  for (const char* const expected :
       {"WinAmp\\Mix.m3u", "WinAmp\\Mix1.m3u", "WinAmp\\Mix12.m3u", "WinAmp\\Mix123.m3u"}) {
    const std::string path = NewPath(u"Mix.m3u");
    EXPECT_EQ(path, expected);
    platform->AddFile(String(kNativeRoot) + String(path.begin(), path.end()), "x");
  }
  EXPECT_EQ(NewPath(u"Mix.m3u", 4), "WinAmp\\Mix.pls");
  EXPECT_EQ(NewPath(u"Mix.m3u", 6), "MusicMatch Jukebox\\Mix.m3u");
  EXPECT_EQ(NewPath(u"MIX.m3u"), "WinAmp\\MIX1234.m3u");  // case does not matter on the disk
  EXPECT_EQ(NewPath(u"Mix1.m3u"), "WinAmp\\Mix11.m3u");
}

TEST_F(NativeNamingTest, ANameOfPunctuationAloneIsNumberedToo) {
  platform->AddFile(String(kNativeRoot) + u"WinAmp\\.m3u", "x");
  EXPECT_EQ(NewPath(u"(!).m3u"), "WinAmp\\1.m3u");
}

TEST_F(NativeNamingTest, OnlyAFileTakesAName) {
  platform->AddFolder(String(kNativeRoot) + u"WinAmp\\Mix.m3u");
  EXPECT_EQ(NewPath(u"Mix.m3u"), "WinAmp\\Mix.m3u");
}

TEST_F(NativeNamingTest, ThousandsOfNamesMayBeTaken) {
  constexpr int kTaken = 2000;
  std::string base = "Mix";
  for (int i = 1; i <= kTaken; ++i) {
    platform->AddFile(
        String(kNativeRoot) + u"WinAmp\\" + String(base.begin(), base.end()) + u".m3u", "");
    base += std::to_string(i);
  }
  EXPECT_EQ(NewPath(u"Mix.m3u"), "WinAmp\\" + base + ".m3u");
}

TEST_F(NativeNamingTest, WithoutADestinationRootThereIsNoPathAndNothingIsMade) {
  platform = std::make_shared<MemoryPlatform>();
  const auto bare = OpenLibrary(platform);
  for (const StringView name : {u"Mix.m3u", u"Mix", u""}) {
    EXPECT_TEXT(GetNewPlayListPath(*bare, name, 3), u"") << Utf8(name);
  }
  EXPECT_EQ(platform->Calls(u"CreateFolder"), 0u);
}

TEST_F(NativeNamingTest, WithoutSubNamesTheGroupRootAloneIsTheDestination) {
  platform->Files().RemoveFile(String(kGroupRoot) + u"SubNames.txt");
  EXPECT_TEXT(GetNewPlayListPath(component, u"Mix.m3u", 3),
              String(kGroupRoot) + u"WinAmp\\Mix.m3u");
}

TEST_F(NativeNamingTest, TheDestinationIsTheFifthSubName) {
  platform->AddFile(String(kGroupRoot) + u"SubNames.txt",
                    "[PlayListStrings]\r\nSzID001=1\r\nSzID002=2\r\nSzID003=3\r\nSzID004=4\r\n"
                    "szID005=5\\deep\r\nszID006=6\r\n");
  EXPECT_TEXT(GetNewPlayListPath(component, u"Mix.m3u", 5),
              String(kGroupRoot) + u"5\\deep\\Sonique\\Mix.pls");
  EXPECT_TRUE(platform->HasFolder(String(kGroupRoot) + u"5\\deep\\Sonique"));
}

TEST_F(NativeNamingTest, AFolderThatCannotBeMadeIsLoggedAndTheFirstNameGiven) {
  platform->Files().Deny(u"C:\\My Documents\\Norvo Media");
  EXPECT_EQ(NewPath(u"Mix.m3u"), "WinAmp\\Mix.m3u");
  EXPECT_FALSE(platform->HasFolder(kNativeRoot));
  EXPECT_EQ(Utf8(log), Lines({" NVServices::CreatePath -> ERROR!!!  Permission denied",
                              " NVServices::CreatePath -> ERROR!!!  Path not found"}));
}

TEST_F(NativeNamingTest, ADiskThatCannotTellOfAFileGivesTheNameInHand) {
  platform->AddFile(String(kNativeRoot) + u"WinAmp\\Mix.m3u", "x");
  platform->AddFile(String(kNativeRoot) + u"WinAmp\\Mix1.m3u", "x");
  platform->FailOn(u"FactsOf", 2, error::kDeviceInputOutput);
  EXPECT_EQ(NewPath(u"Mix.m3u"), "WinAmp\\Mix1.m3u");
  EXPECT_EQ(Utf8(log), Lines({"NVServices::DoesFileExist -> ERROR!!!  Device I/O error"}));
}

TEST_F(NativeNamingTest, TheArgumentsStayAndAreConverted) {
  std::vector<Variant> arguments{String(u"My_Mix.m3u"), String(u"3")};
  EXPECT_TEXT(ToText(playlist->Call(u"GetNewPlayListPath", arguments)),
              String(kNativeRoot) + u"WinAmp\\My Mix.m3u");
  EXPECT_EQ(arguments, (std::vector<Variant>{String(u"My_Mix.m3u"), String(u"3")}));
  EXPECT_EQ(NumberRaisedBy([&] { Call(String(u"Mix.m3u"), String(u"x")); }), error::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { Call(String(u"Mix.m3u"), 3e9); }), error::kOverflow);
  EXPECT_EQ(Call(12.5, std::int32_t{3}), Utf8(kNativeRoot) + "WinAmp\\12.m3u");
}

}  // namespace
}  // namespace norvo
