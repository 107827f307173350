#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>

#include "automation/RunTimeError.h"
#include "support/ChildProcess.h"
#include "support/RefusedCalls.h"
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

TEST_F(HostedFileSystemTest, AFolderWithoutPermissionRaisesPermissionDenied) {
  if (::geteuid() == 0) GTEST_SKIP() << "nothing is denied to root";
  std::filesystem::create_directory(Disk("C/closed"));
  std::filesystem::permissions(Disk("C/closed"), std::filesystem::perms::none);
  EXPECT_EQ(NumberRaisedBy([&] { List(u"C:\\closed"); }), 70);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\closed\\a"); }), 70);
  std::filesystem::permissions(Disk("C/closed"), std::filesystem::perms::owner_all);
}

#ifdef __linux__
TEST_F(HostedFileSystemTest, WhatTheDiskCannotTellOfIsNotMissing) {
  Put(Disk("C/Music/a.mp3"), "");
  const auto numbersWhenRefusedBy = [&](int reason) {
    return ExitOfChild([&] {
      const std::uint32_t number = static_cast<std::uint32_t>(reason);
      if (!Files().FolderExists(u"C:\\Music") || !RefuseCalls({{SYS_statx, number}})) return kSkip;
      const int ofFile = NumberRaisedBy([&] { Files().FactsOf(u"C:\\Music\\b.mp3"); });
      const int ofFolder = NumberRaisedBy([&] { Files().FolderExists(u"C:\\Other"); });
      const bool guesses = NumberRaisedBy([&] { Files().SystemFolder(); }) == 0;
      return guesses && ofFile == ofFolder ? ofFile : 1;
    });
  };
  const int failed = numbersWhenRefusedBy(EIO);
  if (failed == kSkip) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(failed, error::kDeviceInputOutput);
  EXPECT_EQ(numbersWhenRefusedBy(ENOMEM), error::kOutOfMemory);
  EXPECT_EQ(numbersWhenRefusedBy(EACCES), 0) << "nobody here can have it";
}

TEST_F(HostedFileSystemTest, ADeniedLookIsToldOnceOfAFolder) {
  Put(Disk("C/Music/a.mp3"), "");
  const int refused = ExitOfChild([&] {
    if (!Files().FolderExists(u"C:\\Music") || !RefuseCalls({{SYS_statx, EACCES}})) return kSkip;
    for (const StringView path : {u"C:\\Music\\b.mp3", u"C:\\Music\\c.mp3", u"C:\\Other\\d.mp3"}) {
      if (Files().FileExists(path)) return 1;
    }
    if (warnings_.size() != 2) return 2;
    const char* const text =
        "C:\\Music\\b.mp3: the system denies a look at it; it counts as not there, and so does "
        "what "
        "else is denied in its folder";
    return warnings_[0] == text ? 0 : 3;
  });
  if (refused == kSkip) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(refused, 0);
}
#endif

TEST_F(HostedFileSystemTest, NamesThatNoPathCanExpressCostOneWarningEach) {
  Put(Disk("C/m") / "bad\xFF.mp3", "x");
  Put(Disk("C/m") / "two\nlines.mp3", "x");
  Put(Disk("C/m") / "back\\slash.mp3", "x");
  Put(Disk("C/m") / "...", "x");
  Put(Disk("C/m/good.mp3"), "x");
  EXPECT_EQ(List(u"C:\\m"), Names{"good.mp3"});
  EXPECT_EQ(warnings_.size(), 4u);
  for (const std::string& line : warnings_) {
    EXPECT_NE(line.find("C:\\m"), std::string::npos);
    EXPECT_EQ(line.find('\n'), std::string::npos);
  }
  List(u"C:\\m");
  EXPECT_EQ(warnings_.size(), 4u) << "the same names are not reported again";
}

TEST_F(HostedFileSystemTest, LinksToFilesAreListedAndLinksToFoldersAreNot) {
  Put(Disk("C/real/a.mp3"), "");
  std::filesystem::create_directory_symlink("real", Disk("C/alias"));
  std::filesystem::create_symlink("real/a.mp3", Disk("C/b.mp3"));
  std::filesystem::create_symlink("nowhere", Disk("C/dangling"));
  EXPECT_EQ(List(u"C:\\"), (Names{"b.mp3", "real/"}));
  EXPECT_EQ(List(u"C:\\", {u".m3u"}), Names{"real/"});
  EXPECT_EQ(List(u"C:\\alias"), Names{"a.mp3"}) << "a path still leads through the link";
}

TEST_F(HostedFileSystemTest, LinksToFoldersAboveEndAScan) {
  Put(Disk("C/a/x/1.mp3"), "");
  Put(Disk("C/b/y/2.mp3"), "");
  std::filesystem::create_directory_symlink("..", Disk("C/a/up"));
  std::filesystem::create_directory_symlink(".", Disk("C/here"));
  std::filesystem::create_directory_symlink("../../b", Disk("C/a/x/to-b"));
  std::filesystem::create_directory_symlink("../../a", Disk("C/b/y/to-a"));
  const Counter counter = Scan();
  EXPECT_EQ(counter.folders, 5);
  EXPECT_EQ(counter.files, 2);
  EXPECT_EQ(counter.failures, 0);
}

TEST_F(HostedFileSystemTest, FoldersThatLinkToEachOtherAreScannedOnceEach) {
  const std::string names[] = {"a", "b", "c"};
  for (const std::string& name : names) {
    Put(Disk("C/" + name + "/1.mp3"), "");
    for (const std::string& other : names) {
      if (other == name) continue;
      std::filesystem::create_directory_symlink("../" + other, Disk("C/" + name + "/to-" + other));
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
  ASSERT_EQ(::chmod(Disk("C/a.txt").c_str(), 0444), 0);
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
  EXPECT_FALSE(std::filesystem::exists(Disk("C/LOG.TXT")));
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

TEST_F(HostedFileSystemTest, LocalDatesCountDaysFromTheEndOf1899) {
  const char* const old = ::getenv("TZ");
  const std::string kept = old == nullptr ? "" : old;
  ::setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
  ::tzset();
  EXPECT_DOUBLE_EQ(Files().LocalDate(0).days, 25569.0 - 5.0 / 24);
  // 5/14/2003 14:12:00 UTC is 10:12:00 in summer time.
  EXPECT_DOUBLE_EQ(Files().LocalDate(1052921520).days, 37755 + (10 * 60 + 12) / 1440.0);
  // 12/29/1899 06:00:00 local: the fraction is written backward.
  EXPECT_DOUBLE_EQ(Files().LocalDate(-2209161600 - 86400 + 11 * 3600).days, -1.25);
  old == nullptr ? ::unsetenv("TZ") : ::setenv("TZ", kept.c_str(), 1);
  ::tzset();
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
