#include "readahead/ReadAhead.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "support/TestMachine.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

/// Whether the system has a file's first page in its memory.
bool IsInMemory(const fs::path& path) {
  const SystemFile file = std::move(*OpenSystemPath(path.string()));
  KeepAccessTime(file);  // or the mapping would count as an access
  void* const page = ::mmap(nullptr, 1, PROT_READ, MAP_SHARED, static_cast<int>(file.Get()), 0);
  unsigned char resident = 0;
  ::mincore(page, 1, &resident);
  ::munmap(page, 1);
  return (resident & 1) != 0;
}

bool IsSoonInMemory(const fs::path& path) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!IsInMemory(path) && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return IsInMemory(path);
}

class ReadAheadTest : public TestMachine {
 protected:
  /// A file that the system has on the disk alone. Skips the test where a disk cannot do that.
  fs::path PutCold(const std::string& path, const std::string& bytes = "music") {
    Put(Disk(path), bytes);
    MakeCold(Disk(path));
    return Disk(path);
  }
  void MakeCold(const fs::path& path) {
    const SystemFile file = std::move(*OpenSystemPath(path.string()));
    const int descriptor = static_cast<int>(file.Get());
    ::fsync(descriptor);
    ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
    canForget_ = canForget_ && !IsInMemory(path);
  }

  bool canForget_ = true;
};

#define REQUIRE_FORGETTING() \
  if (!canForget_) GTEST_SKIP() << "the disk of the test's folder keeps everything in memory"

TEST_F(ReadAheadTest, TheSongsOfAListedPlaylistAreFetched) {
  const fs::path song = PutCold("C/Music/a.mp3");
  const fs::path other = PutCold("C/Lists/b.mp3");
  Put(Disk("C/Lists/Mix.m3u"), "C:\\Music\\a.mp3\r\nb.mp3\r\n");
  REQUIRE_FORGETTING();
  const ReadAhead ahead(Machine());
  Files().ListFolder(u"C:\\Lists\\", {});
  EXPECT_TRUE(IsSoonInMemory(song));
  EXPECT_TRUE(IsSoonInMemory(other));
}

TEST_F(ReadAheadTest, NothingIsFetchedOverALinkThatLeavesTheMachine) {
  Put(Outside("secret/a.mp3"), "music");
  MakeCold(Outside("secret/a.mp3"));
  fs::create_symlink(Outside("secret"), Disk("C/Music"));
  const fs::path next = PutCold("C/Lists/b.mp3");
  Put(Disk("C/Lists/Mix.m3u"), "C:\\Music\\a.mp3\r\n..\\..\\secret\\a.mp3\r\nb.mp3\r\n");
  REQUIRE_FORGETTING();
  const ReadAhead ahead(Machine());
  Files().ListFolder(u"C:\\Lists\\", {});
  EXPECT_TRUE(IsSoonInMemory(next));
  EXPECT_FALSE(IsInMemory(Outside("secret/a.mp3")));
}

TEST_F(ReadAheadTest, ItDoesNotRunAheadWithoutEnd) {
  std::string many;
  for (int i = 0; i < 20000; ++i) many += "C:\\None\\" + std::to_string(i) + ".mp3\r\n";
  const fs::path first = PutCold("C/Lists/first.mp3");
  const fs::path second = PutCold("C/Lists/second.mp3");
  const fs::path third = PutCold("C/Rest/third.mp3");
  Put(Disk("C/Lists/1.m3u"), many + "first.mp3\r\n");
  Put(Disk("C/Lists/2.m3u"), many + "second.mp3\r\n");
  Put(Disk("C/Rest/3.m3u"), "third.mp3\r\n");
  REQUIRE_FORGETTING();
  ReadAhead ahead(Machine());
  Files().ListFolder(u"C:\\Lists\\", {});
  EXPECT_TRUE(IsSoonInMemory(first));
  EXPECT_TRUE(IsSoonInMemory(second));
  std::this_thread::sleep_for(std::chrono::milliseconds(500));  // until both are counted
  Files().ListFolder(u"C:\\Rest\\", {});
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_FALSE(IsInMemory(third));
  ahead.Passed(2);
  EXPECT_TRUE(IsSoonInMemory(third));
}

TEST_F(ReadAheadTest, TheTimesOfFilesStayAsTheyAre) {
  const fs::path song = PutCold("C/Lists/a.mp3");
  const fs::path list = Disk("C/Lists/Mix.m3u");
  Put(list, "a.mp3\r\n");
  REQUIRE_FORGETTING();
  // Older than the last write: the next access would be noted.
  const timespec old[2] = {{1'000'000, 0}, {2'000'000, 0}};
  for (const fs::path& path : {song, list}) ::utimensat(AT_FDCWD, path.c_str(), old, 0);
  {
    const ReadAhead ahead(Machine());
    Files().ListFolder(u"C:\\Lists\\", {});
    EXPECT_TRUE(IsSoonInMemory(song));
  }
  EXPECT_EQ(LookUpSystemPath(song.string())->accessed.seconds, 1'000'000);
  EXPECT_EQ(LookUpSystemPath(list.string())->accessed.seconds, 1'000'000);
}

TEST_F(ReadAheadTest, WhatIsNoSongAndNoListDoesNoHarm) {
  Put(Disk("C/Lists/Odd.m3u"),
      "Folder\r\nPipe\r\nC:\\\r\n\\\r\n.\r\n" + std::string(300000, '\xFF'));
  Put(Disk("C/Lists/Gone.m3u"), "a.mp3\r\n");
  fs::create_directories(Disk("C/Lists/Folder"));
  fs::create_directories(Disk("C/Lists/Folder.m3u"));
  ::mkfifo(Disk("C/Lists/Pipe").c_str(), 0600);
  ::mkfifo(Disk("C/Lists/Pipe.m3u").c_str(), 0600);
  const ReadAhead ahead(Machine());
  for (int i = 0; i < 20; ++i) Files().ListFolder(u"C:\\Lists\\", {});
  fs::remove_all(Disk("C"));
  EXPECT_FALSE(Files().FolderExists(u"C:\\Lists\\"));
}

TEST_F(ReadAheadTest, AWalkSeesTheSameWithAndWithoutIt) {
  for (int folder = 0; folder < 40; ++folder) {
    for (int file = 0; file < 5; ++file) {
      Put(Disk("C/" + std::to_string(folder) + "/Below/" + std::to_string(file) + ".pls"), "x");
    }
  }
  const auto all = [this] {
    std::vector<std::string> names;
    for (int folder = 0; folder < 40; ++folder) {
      const String path = u"C:\\" + FromUtf8Lossy(std::to_string(folder)) + u"\\";
      for (const FolderItem& item : Files().ListFolder(path, {})) {
        names.push_back(ToUtf8(path + item.name));
        for (const FolderItem& below : Files().ListFolder(path + item.name + u"\\", {})) {
          names.push_back(ToUtf8(below.name));
        }
      }
    }
    return names;
  };
  Files().ListFolder(u"C:\\", {});
  const std::vector<std::string> without = all();
  Restart();
  const ReadAhead ahead(Machine());
  Files().ListFolder(u"C:\\", {});
  EXPECT_EQ(all(), without);
}

TEST_F(ReadAheadTest, NothingIsHeardOfAMachineThatItNoLongerFollows) {
  Put(Disk("C/Lists/Mix.m3u"), "a.mp3\r\n");
  { const ReadAhead ahead(Machine()); }
  EXPECT_EQ(Files().ListFolder(u"C:\\Lists\\", {}).size(), 1u);
}

}  // namespace
}  // namespace norvo
