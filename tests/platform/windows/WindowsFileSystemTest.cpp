#include <algorithm>

#include "ScratchFolder.h"

namespace norvo {
namespace {

class WindowsFileSystemTest : public ScratchFolder {
 protected:
  /// Creates folders until the path is far longer than 260 characters; the last one's path inside.
  String MakeDeepFolder() {
    String inside;
    for (int level = 0; level < 5; ++level) {
      if (level > 0) inside += u'\\';
      inside += String(90, static_cast<char16_t>(u'a' + level));
      Files().CreateFolder(Path(inside));
    }
    return inside;
  }

  FILETIME SetTimes(StringView inside, DWORD created, DWORD written) {
    const FileHandle file(::CreateFileW(ToWide(System(Path(inside))), FILE_WRITE_ATTRIBUTES, 0,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME first = {created, 0x01C31A0B};
    const FILETIME second = {written, 0x01C31A0B};
    EXPECT_TRUE(::SetFileTime(file.Get(), &first, nullptr, &second));
    FILETIME kept = {};
    EXPECT_TRUE(::GetFileTime(file.Get(), &kept, nullptr, nullptr));
    return kept;
  }
};

TEST_F(WindowsFileSystemTest, FactsCarryTheDisksSpelling) {
  Put(u"Ärger – 音楽.mp3", "12345");
  const std::optional<FileFacts> facts = Files().FactsOf(Path(u"ÄRGER – 音楽.MP3"));
  ASSERT_TRUE(facts);
  EXPECT_TEXT(facts->name, u"Ärger – 音楽.mp3");
  EXPECT_EQ(facts->size, 5);
}

TEST_F(WindowsFileSystemTest, FactsCarryTheTimes) {
  Put(u"a.mp3", "");
  const FILETIME created = SetTimes(u"a.mp3", 0x80000000, 0x80000000);
  const std::optional<FileFacts> facts = Files().FactsOf(Path(u"a.mp3"));
  ASSERT_TRUE(facts);
  constexpr std::int64_t kTicks = 0x01C31A0B80000000 - 116444736000000000;
  EXPECT_EQ(facts->modified, kTicks * 100);
  const std::int64_t ticks = std::int64_t{created.dwHighDateTime} << 32 | created.dwLowDateTime;
  EXPECT_EQ(facts->created, (ticks - 116444736000000000) / 10'000'000);
}

TEST_F(WindowsFileSystemTest, OnlyAFileHasFacts) {
  MakeFolder(u"folder");
  Put(u"a.mp3", "x");
  EXPECT_EQ(NameOf(Path(u"a.mp3")), "a.mp3");
  for (const StringView inside : {u"folder", u"missing", u"missing\\a.mp3", u"a.mp3\\", u"*.mp3",
                                  u"a.mp?", u"a.mp3\\b", u"<.mp3", u"a.mp3:x"}) {
    EXPECT_EQ(NameOf(Path(inside)), "(none)") << Utf8(inside);
  }
  EXPECT_EQ(NameOf(u""), "(none)");
  EXPECT_EQ(NameOf(MissingDrive() + u"\\a.mp3"), "(none)");
  EXPECT_FALSE(Files().FileExists(Path(u"folder")));
}

TEST_F(WindowsFileSystemTest, FoldersAreFoundInAnySpelling) {
  MakeFolder(u"Ordner Ä");
  Put(u"file", "");
  EXPECT_TRUE(Files().FolderExists(Path(u"ORDNER ä")));
  EXPECT_TRUE(Files().FolderExists(Path(u"Ordner Ä\\")));
  EXPECT_TRUE(Files().FolderExists(Path(u"Ordner Ä. \\.\\")));
  EXPECT_FALSE(Files().FolderExists(Path(u"file")));
  EXPECT_FALSE(Files().FolderExists(Path(u"Ordner*")));
  EXPECT_FALSE(Files().FolderExists(u""));
  EXPECT_TRUE(Files().FolderExists(Path(u"").substr(0, 2))) << "a drive alone is its root";
  EXPECT_FALSE(Files().FolderExists(MissingDrive() + u"\\"));
}

TEST_F(WindowsFileSystemTest, CreatesOneFolder) {
  Files().CreateFolder(Path(u"New Folder. "));
  EXPECT_TRUE(Exists(u"New Folder"));
  Files().CreateFolder(Path(u"NEW FOLDER\\Sub\\"));
  EXPECT_TRUE(Exists(u"New Folder\\Sub"));
}

TEST_F(WindowsFileSystemTest, CreatingAFolderFails) {
  Put(u"file", "");
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(Path(u"a\\b")); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(Path(u"file\\b")); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(MissingDrive() + u"\\a"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(Path(u"FILE")); }), 75);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(Path(u"").substr(0, 3)); }), 75);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(Path(u"a*b")); }), 75);
  EXPECT_FALSE(Exists(u"a"));
}

TEST_F(WindowsFileSystemTest, DeletesReadOnlyFilesOnlyWhenForced) {
  Put(u"a.txt", "");
  SetReadOnly(u"a.txt");
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"a.txt"), false); }), 70);
  EXPECT_TRUE(Exists(u"a.txt"));
  Files().RemoveFile(Path(u"A.TXT"), true);
  EXPECT_FALSE(Exists(u"a.txt"));
}

TEST_F(WindowsFileSystemTest, AFileInUseStaysAsItWas) {
  Put(u"a.txt", "");
  SetReadOnly(u"a.txt");
  {
    const FileHandle user(::CreateFileW(ToWide(System(Path(u"a.txt"))), GENERIC_READ, 0, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"a.txt"), true); }), 70);
    EXPECT_EQ(ErrorOf([&] { Files().OpenForReading(Path(u"a.txt")); }), 70);
  }
  EXPECT_NE(::GetFileAttributesW(ToWide(Path(u"a.txt"))) & FILE_ATTRIBUTE_READONLY, 0u);
}

TEST_F(WindowsFileSystemTest, DeletingWhatIsNoFileFails) {
  MakeFolder(u"folder");
  Put(u"a", "");
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"b"), true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"folder"), true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"a\\"), true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"*"), true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(Path(u"nowhere\\b"), true); }), 76);
  EXPECT_TRUE(Exists(u"folder"));
  EXPECT_TRUE(Exists(u"a"));
}

TEST_F(WindowsFileSystemTest, PathsOfAnyLengthAreUsed) {
  const String inside = MakeDeepFolder();
  const String path = Path(inside + u"\\Lied.mp3");
  ASSERT_GT(path.size(), 400u);
  Files().OpenForAppending(path, true)->Append("long");
  EXPECT_EQ(Get(inside + u"\\Lied.mp3"), "long");
  EXPECT_EQ(NameOf(Path(inside + u"\\LIED.MP3")), "Lied.mp3");
  EXPECT_EQ(Files().OpenForReading(path)->Size(), 4u);
  EXPECT_TRUE(Files().FolderExists(Path(inside)));
  EXPECT_EQ(List(Path(inside)), Lines{"Lied.mp3"});
  Machine().Settings().Write(Path(inside + u"\\sub\\a.ini"), "one");
  EXPECT_EQ(Machine().Settings().Read(Path(inside + u"\\sub\\a.ini")), "one");
  Files().RemoveFile(path, false);
  EXPECT_FALSE(Exists(inside + u"\\Lied.mp3"));
}

TEST_F(WindowsFileSystemTest, TheThreadsErrorModeIsLeftAsItWas) {
  const DWORD before = ::GetThreadErrorMode();
  Files().FolderExists(MissingDrive() + u"\\");
  ErrorOf([&] { Files().OpenForReading(MissingDrive() + u"\\a"); });
  EXPECT_EQ(::GetThreadErrorMode(), before);
}

}  // namespace
}  // namespace norvo
