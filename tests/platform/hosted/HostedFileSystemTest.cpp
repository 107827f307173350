#include <algorithm>

#include "automation/RunTimeError.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

class HostedFileSystemTest : public TestMachine {
 protected:
  std::vector<std::string> List(StringView path, std::vector<StringView> endings = {}) {
    std::vector<std::string> names;
    for (const FolderItem& item : Files().ListFolder(path, endings)) {
      names.push_back(ToUtf8(item.name) + (item.isFolder ? "/" : ""));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  struct Counter final : ScanVisitor {
    bool EnterFolder(StringView) override { return ++folders < 1000; }
    void VisitFile(StringView, StringView) override { ++files; }
    void CannotList(StringView, StringView) override { ++failures; }
    int folders = 0, files = 0, failures = 0;
  };
  Counter Scan() {
    Counter counter;
    Machine().Scanner()->Scan({}, counter);
    return counter;
  }
};

using Names = std::vector<std::string>;

TEST_F(HostedFileSystemTest, ListsSubFoldersAndFiles) {
  Put(Disk("C/Music/b.mp3"), "");
  Put(Disk("C/Music/Ä.m3u"), "");
  Put(Disk("C/Music/Sub.x/c"), "");
  EXPECT_EQ(List(u"C:\\Music"), (Names{"Sub.x/", "b.mp3", "Ä.m3u"}));
  EXPECT_EQ(List(u"c:\\MUSIC\\"), (Names{"Sub.x/", "b.mp3", "Ä.m3u"}));
}

TEST_F(HostedFileSystemTest, EndingsChooseFilesAndNeverFolders) {
  Put(Disk("C/a.M3U"), "");
  Put(Disk("C/b.m3u8"), "");
  Put(Disk("C/m3u"), "");
  Put(Disk("C/ä.asx"), "");
  Put(Disk("C/folder/x"), "");
  EXPECT_EQ(List(u"C:\\", {u".m3u", u".ASX"}), (Names{"a.M3U", "folder/", "ä.asx"}));
}

TEST_F(HostedFileSystemTest, ListingWhatIsNoFolderFails) {
  Put(Disk("C/file"), "");
  EXPECT_EQ(NumberRaisedBy([&] { List(u"C:\\missing"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { List(u"C:\\file"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { List(u"X:\\"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { List(u""); }), 76);
  try {
    List(u"C:\\missing");
  } catch (const RunTimeError& failure) {
    EXPECT_NE(failure.Description().find(u"C:\\missing"), String::npos);
  }
}

TEST_F(HostedFileSystemTest, LinksToFilesAreListedAndLinksToFoldersAreNot) {
  NEEDS_LINKS();
  Put(Disk("C/real/a.mp3"), "");
  MakeFolderLink("real", Disk("C/alias"));
  MakeFileLink("real/a.mp3", Disk("C/b.mp3"));
  MakeFileLink("nowhere", Disk("C/dangling"));
  EXPECT_EQ(List(u"C:\\"), (Names{"b.mp3", "real/"}));
  EXPECT_EQ(List(u"C:\\", {u".m3u"}), Names{"real/"});
  EXPECT_EQ(List(u"C:\\alias"), Names{"a.mp3"}) << "a path still leads through the link";
}

TEST_F(HostedFileSystemTest, AListedLinkOutOfTheDriveIsANoticeOnceOfADrive) {
  NEEDS_LINKS();
  Put(Disk("C/m/sub/a.mp3"), "");
  MakeFolderLink(Outside("away"), Disk("C/m/away"));
  MakeFileLink("nowhere", Disk("C/m/sub/dangling"));
  EXPECT_EQ(List(u"C:\\m\\"), Names{"sub/"});
  EXPECT_EQ(List(u"C:\\m\\sub"), Names{"a.mp3"});
  EXPECT_EQ(warnings_, std::vector<std::string>{
                           "C:\\m\\away: this link leads out of the disk, or nowhere; no such link "
                           "of this disk is followed, and what it led to was not searched"});
  EXPECT_EQ(weights_, std::vector{WarningWeight::Notice});
}

TEST_F(HostedFileSystemTest, LinksToFoldersAboveEndAScan) {
  NEEDS_LINKS();
  Put(Disk("C/a/x/1.mp3"), "");
  Put(Disk("C/b/y/2.mp3"), "");
  MakeFolderLink("..", Disk("C/a/up"));
  MakeFolderLink(".", Disk("C/here"));
  MakeFolderLink("../../b", Disk("C/a/x/to-b"));
  MakeFolderLink("../../a", Disk("C/b/y/to-a"));
  const Counter counter = Scan();
  EXPECT_EQ(counter.folders, 5);
  EXPECT_EQ(counter.files, 2);
  EXPECT_EQ(counter.failures, 0);
}

TEST_F(HostedFileSystemTest, FoldersThatLinkToEachOtherAreScannedOnceEach) {
  NEEDS_LINKS();
  const std::string names[] = {"a", "b", "c"};
  for (const std::string& name : names) {
    Put(Disk("C/" + name + "/1.mp3"), "");
    for (const std::string& other : names) {
      if (other == name) continue;
      MakeFolderLink("../" + other, Disk("C/" + name + "/to-" + other));
    }
  }
  const Counter counter = Scan();
  EXPECT_EQ(counter.folders, 4);
  EXPECT_EQ(counter.files, 3);
  EXPECT_EQ(counter.failures, 0);
  EXPECT_EQ(NameOf(u"C:\\a\\to-b\\to-c\\1.mp3"), "1.mp3");
}

TEST_F(HostedFileSystemTest, CreatesOneFolderAsItIsSpelled) {
  Files().CreateFolder(u"C:\\New Folder. ");
  EXPECT_TRUE(std::filesystem::is_directory(Disk("C/New Folder")));
  Files().CreateFolder(u"c:\\NEW FOLDER\\Sub\\");
  EXPECT_TRUE(std::filesystem::is_directory(Disk("C/New Folder/Sub")));
  EXPECT_TRUE(Files().FolderExists(u"C:\\new folder\\sub"));
}

TEST_F(HostedFileSystemTest, CreatingAFolderFails) {
  Put(Disk("C/file"), "");
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\a\\b"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"X:\\a"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\FILE"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\"); }), 75);
  EXPECT_NE(NumberRaisedBy([&] { Files().CreateFolder(StringView(u"C:\\a\0b", 6)); }), 0);
  EXPECT_FALSE(std::filesystem::exists(Disk("C/a")));
}

TEST_F(HostedFileSystemTest, DeletesReadOnlyFilesOnlyWhenForced) {
  Put(Disk("C/a.txt"), "");
  std::filesystem::permissions(Disk("C/a.txt"), std::filesystem::perms(0444));
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\a.txt", false); }), 70);
  EXPECT_TRUE(std::filesystem::exists(Disk("C/a.txt")));
  Files().RemoveFile(u"C:\\A.TXT", true);
  EXPECT_FALSE(std::filesystem::exists(Disk("C/a.txt")));
}

TEST_F(HostedFileSystemTest, DeletingWhatIsNoFileFails) {
  Put(Disk("C/folder/a"), "");
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\b", true); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\folder", true); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\nowhere\\b", true); }), 76);
  EXPECT_TRUE(std::filesystem::exists(Disk("C/folder/a")));
}

TEST_F(HostedFileSystemTest, ReadsAtAnyPlace) {
  Put(Disk("C/a.bin"), "0123456789");
  const std::unique_ptr<BinaryFile> file = Files().OpenForReading(u"C:\\a.bin");
  char buffer[4] = {};
  EXPECT_EQ(file->Size(), 10u);
  EXPECT_EQ(file->ReadAt(3, buffer), 4u);
  EXPECT_EQ(std::string(buffer, 4), "3456");
  EXPECT_EQ(file->ReadAt(8, buffer), 2u);
  EXPECT_EQ(file->ReadAt(10, buffer), 0u);
  EXPECT_EQ(file->ReadAt(~std::uint64_t{0}, buffer), 0u);
}

TEST_F(HostedFileSystemTest, AFileThatGrewSinceItsFactsWereAskedIsReadWhole) {
  Put(Disk("C/a.bin"), "0123");
  ASSERT_EQ(Files().FactsOf(u"C:\\a.bin")->size, 4);
  Files().OpenForAppending(u"C:\\a.bin", false)->Append("456789");
  ASSERT_EQ(Files().OpenForReading(u"C:\\a.bin")->Size(), 10u);
  EXPECT_EQ(Read(u"C:\\A.bin"), "0123456789");
}

TEST_F(HostedFileSystemTest, ANameWithATildeIsNoShortNameUnlessTheDiskHasItAsOne) {
  Put(Disk("C/Live~1/Gr~1.mp3"), "song");
  EXPECT_EQ(Files().FactsOf(u"C:\\LIVE~1\\GR~1.MP3")->name, u"Gr~1.mp3");
}

TEST_F(HostedFileSystemTest, OpeningWhatIsNoFileFails) {
  Put(Disk("C/folder/a"), "");
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\b"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\folder"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\folder\\a\\"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\nowhere\\b"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\b", false); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\nowhere\\b", true); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\folder", true); }), 75);
}

TEST_F(HostedFileSystemTest, AppendsToTheFileInWhateverSpelling) {
  Files().OpenForAppending(u"C:\\Log.txt", true)->Append("one\r\n");
  Files().OpenForAppending(u"C:\\LOG.TXT", true)->Append("two\r\n");
  Files().OpenForAppending(u"C:\\Log.txt", false)->Append("three\r\n");
  EXPECT_EQ(Get(Disk("C/Log.txt")), "one\r\ntwo\r\nthree\r\n");
  EXPECT_EQ(List(u"C:\\"), Names{"Log.txt"});
}

TEST_F(HostedFileSystemTest, AbsolutePathNamesStartAtDriveC) {
  EXPECT_EQ(Files().AbsolutePathName(u"C:\\Music\\Pop\\..\\a.mp3"), u"C:\\Music\\a.mp3");
  EXPECT_EQ(Files().AbsolutePathName(u"a.mp3"), u"C:\\a.mp3");
}

std::string Program(std::size_t padding, const std::string& resource) {
  std::string bytes(64, '\0');
  bytes.replace(0, 2, "MZ");
  bytes[60] = 64;
  return bytes + std::string("PE\0\0", 4) + std::string(padding, 'x') + resource;
}

const std::string kResource("\xBD\x04\xEF\xFE\0\0\1\0\2\0\5\0\x04\0\x93\x08", 16);

TEST_F(HostedFileSystemTest, ReadsTheVersionOfAProgram) {
  Put(Disk("C/a.dll"), Program(100, kResource));
  EXPECT_EQ(Files().FileVersion(u"C:\\a.dll"), u"5.2.2195.4");
}

TEST_F(HostedFileSystemTest, FindsAVersionThatLiesAcrossTwoPieces) {
  for (std::size_t cut = 1; cut < 16; ++cut) {
    Put(Disk("C/a.dll"), Program(256 * 1024 - 68 - cut, kResource));
    EXPECT_EQ(Files().FileVersion(u"C:\\a.dll"), u"5.2.2195.4") << cut;
  }
}

TEST_F(HostedFileSystemTest, OtherFilesHaveNoVersion) {
  Put(Disk("C/plain.dll"), kResource);
  Put(Disk("C/none.dll"), Program(100, ""));
  Put(Disk("C/cut.dll"), Program(100, kResource.substr(0, 15)));
  Put(Disk("C/short.dll"), "MZ");
  for (const StringView path :
       {u"C:\\plain.dll", u"C:\\none.dll", u"C:\\cut.dll", u"C:\\short.dll", u"C:\\missing.dll"}) {
    EXPECT_EQ(Files().FileVersion(path), u"") << ToUtf8(path);
  }
}

TEST_F(HostedFileSystemTest, TheSystemFolderFollowsTheMachine) {
  EXPECT_EQ(Files().SystemFolder(), u"C:\\Windows\\System32\\");
  std::filesystem::create_directory(Disk("C/WINNT"));
  EXPECT_EQ(Files().SystemFolder(), u"C:\\WINNT\\System32\\");
  std::filesystem::create_directory(Disk("C/WINDOWS"));
  EXPECT_EQ(Files().SystemFolder(), u"C:\\Windows\\System32\\");
}

TEST_F(HostedFileSystemTest, WhatAStoppedWriteLeftBehindIsTakenOverByTheNextOne) {
  const auto names = [this] {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(Disk("C"))) {
      found.push_back(entry.path().filename().string());
    }
    return found;
  };
  Put(Disk("C/.norvo-" + std::to_string(std::hash<std::string_view>()("Mix.ini")) + ".tmp"), "old");
  Machine().Settings().Write(u"C:\\Mix.ini", "new");
  EXPECT_EQ(names(), std::vector<std::string>{"Mix.ini"});
  EXPECT_EQ(Get(Disk("C/Mix.ini")), "new");
}

}  // namespace
}  // namespace norvo
