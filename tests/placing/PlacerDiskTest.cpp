// Disks that are full, cannot be written to or know less than others, and processes that are
// stopped. Needs calls that only Linux has.

#ifdef __linux__

#include <fcntl.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "PlacerTest.h"
#include "support/RefusedCalls.h"

namespace norvo {
namespace {

constexpr std::size_t kKilobyte = 1024;

class PlacerDiskTest : public PlacerTest {
 protected:
  ~PlacerDiskTest() override {
    if (mounted_) ::umount2(New("C").c_str(), MNT_DETACH);
  }

  /// Makes the new machine's drive a disk of its own, in memory.
  bool MountNewDrive(const std::string& options) {
    mounted_ = ::mount("tmpfs", New("C").c_str(), "tmpfs", 0, options.c_str()) == 0;
    return mounted_;
  }

  /// Songs in two folders, each with other times; the jobs that place them all.
  std::vector<PlaceJob> MakeSongs(int count, std::size_t size) {
    std::vector<PlaceJob> jobs;
    for (int i = 0; i < count; ++i) {
      const std::string name = (i % 2 == 0 ? "Pop/" : "Rock/") + std::to_string(i) + ".mp3";
      Put(Disk("C") / name, std::string(size, static_cast<char>('a' + i % 26)));
      SetTimes(Disk("C") / name, {1200000000 + i, i}, {1100000000 + i, 999 - i});
      jobs.push_back({u"C:\\" + FromUtf8Lossy(name), u"C:\\Songs\\" + FromUtf8Lossy(name)});
    }
    return jobs;
  }

  /// What the new drive holds after one run that nobody stops; it is empty again afterwards.
  std::map<std::string, std::string> TreeAfterOneRun(const std::vector<PlaceJob>& jobs) {
    EXPECT_EQ(Place(jobs), Lines(jobs.size(), "copied"));
    std::map<std::string, std::string> tree = Tree(New("C"));
    EmptyNewDrive();
    return tree;
  }
  void EmptyNewDrive() {
    RestartBoth();
    std::filesystem::remove_all(New("C/Songs"));
  }

 private:
  bool mounted_ = false;
};

/// A disk on which every file has a name from the start.
std::vector<Refusal> WithoutUnnamedFiles() {
  return {{SYS_openat2, ENOSYS}, {SYS_openat, EOPNOTSUPP, 2, O_TMPFILE}};
}

TEST_F(PlacerDiskTest, OnAFullDiskBigFilesFailAndSmallOnesStillFit) {
  if (!MountNewDrive("size=1m")) GTEST_SKIP() << "a disk can be mounted by root only";
  Put(Disk("C/big.mp3"), std::string(2048 * kKilobyte, 'b'));
  Put(Disk("C/half.mp3"), std::string(500 * kKilobyte, 'h'));
  Put(Disk("C/small.mp3"), "small");
  const std::string full = "failed: the file cannot be copied: the disk is full";
  const std::string fullAtOnce = "failed: the new file cannot be written: the disk is full";
  PlaceNotes notes(6);
  Place({{u"C:\\big.mp3", u"C:\\1.mp3"},
         {u"C:\\half.mp3", u"C:\\2.mp3"},
         {u"C:\\big.mp3", u"C:\\3.mp3"},
         {u"C:\\small.mp3", u"C:\\4.mp3"},
         {u"C:\\half.mp3", u"C:\\5.mp3"},
         {u"C:\\half.mp3", u"C:\\6.mp3"}},
        notes);
  EXPECT_EQ(notes.lines[0], full);
  EXPECT_EQ(notes.lines[1], "copied");
  EXPECT_EQ(notes.lines[2], fullAtOnce) << "nothing is copied to find that out again";
  EXPECT_EQ(notes.lines[3], "copied");
  EXPECT_EQ(notes.lines[4], "copied");
  EXPECT_EQ(notes.lines[5], fullAtOnce);
  EXPECT_EQ(NamesIn(New("C")), (std::vector<std::string>{"2.mp3", "4.mp3", "5.mp3"}));
  EXPECT_EQ(Get(New("C/5.mp3")), Get(Disk("C/half.mp3")));
}

TEST_F(PlacerDiskTest, OnAReadOnlyDiskEachFileFails) {
  if (!MountNewDrive("size=1m")) GTEST_SKIP() << "a disk can be mounted by root only";
  Put(Disk("C/a.mp3"), "a");
  Put(New("C/there.mp3"), "a");
  ASSERT_EQ(::mount("tmpfs", New("C").c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
  const std::string readOnly = "failed: the new file cannot be written: the disk is read-only";
  EXPECT_EQ(Place({{u"C:\\a.mp3", u"C:\\1.mp3"},
                   {u"C:\\a.mp3", u"C:\\new\\2.mp3"},
                   {u"C:\\a.mp3", u"C:\\there.mp3"}}),
            (Lines{readOnly, readOnly, "already there"}));
}

TEST_F(PlacerDiskTest, EveryWayOfCopyingMakesTheSameFiles) {
  const std::vector<PlaceJob> jobs = MakeSongs(5, 1500 * kKilobyte + 7);
  const std::map<std::string, std::string> expected = TreeAfterOneRun(jobs);
  const std::vector<Refusal> poorer[] = {
      {{SYS_copy_file_range, EXDEV}},
      {{SYS_copy_file_range, ENOSYS}, {SYS_sendfile, EINVAL}},
      WithoutUnnamedFiles(),
      {{SYS_openat2, ENOSYS}, {SYS_openat, EOPNOTSUPP, 2, O_TMPFILE}, {SYS_renameat2, EINVAL}},
      {{SYS_openat2, ENOSYS},
       {SYS_openat, EOPNOTSUPP, 2, O_TMPFILE},
       {SYS_renameat2, EINVAL},
       {SYS_linkat, EPERM}},
      {{SYS_syncfs, EIO}},
  };
  for (const std::vector<Refusal>& refusals : poorer) {
    EmptyNewDrive();
    const Lines lines = PlaceInChild(jobs, [&] { return RefuseCalls(refusals); });
    if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
    EXPECT_EQ(lines, Lines(jobs.size(), "copied"));
    EXPECT_EQ(Tree(New("C")), expected) << "refused first: " << refusals.front().call;
  }
}

TEST_F(PlacerDiskTest, WhereTimesCannotBeSetFilesAreCopiedAllTheSame) {
  const std::vector<PlaceJob> jobs = MakeSongs(3, 1000);
  for (const bool named : {false, true}) {
    EmptyNewDrive();
    const Lines lines = PlaceInChild(jobs, [&] {
      std::vector<Refusal> refusals = {{SYS_utimensat, EPERM}};
      if (named) {
        for (const Refusal& each : WithoutUnnamedFiles()) refusals.push_back(each);
      }
      return RefuseCalls(refusals);
    });
    if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
    EXPECT_EQ(lines, Lines(3, "copied, without its times: permission denied"));
    EXPECT_EQ(Get(New("C/Songs/Rock/1.mp3")), Get(Disk("C/Rock/1.mp3")));
    RestartBoth();
    EXPECT_EQ(Place(jobs), Lines(3, "already there")) << "which is nobody's news";
  }
}

TEST_F(PlacerDiskTest, WhatSomebodyElsePutsThereMeanwhileIsNotReplacedByAnyDisk) {
  const std::vector<PlaceJob> jobs = MakeSongs(1, 10);
  const std::filesystem::path target = New("C/Songs/Pop/0.mp3");
  for (const bool canRename : {true, false}) {
    for (const bool canLink : {true, false}) {
      EmptyNewDrive();
      std::vector<Refusal> refusals = WithoutUnnamedFiles();
      if (!canRename) refusals.push_back({SYS_renameat2, EINVAL});
      if (!canLink) refusals.push_back({SYS_linkat, EPERM});
      const Lines lines = PlaceInChild(
          jobs, [&] { return RefuseCalls(refusals); }, PlaceMode::Copy,
          [&] { Put(target, "other"); });
      if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
      EXPECT_EQ(lines, Lines{"failed: another file of that name is there already"});
      EXPECT_EQ(Get(target), "other");
      EXPECT_EQ(NamesIn(target.parent_path()), std::vector<std::string>{"0.mp3"});
    }
  }
}

TEST_F(PlacerDiskTest, WhereFilesHaveOneNameOnlyALinkBecomesACopy) {
  const std::vector<PlaceJob> jobs = MakeSongs(3, 1000);
  const std::map<std::string, std::string> expected = TreeAfterOneRun(jobs);
  const Lines lines = PlaceInChild(
      jobs,
      [] {
        std::vector<Refusal> refusals = WithoutUnnamedFiles();
        refusals.push_back({SYS_linkat, EPERM});
        return RefuseCalls(refusals);
      },
      PlaceMode::Link);
  if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
  EXPECT_EQ(lines, Lines(3, "copied"));
  EXPECT_EQ(Tree(New("C")), expected);
}

TEST_F(PlacerDiskTest, FilesThatTheDiskDoesNotTakeGetNoName) {
  const std::vector<PlaceJob> jobs = MakeSongs(10, 1000);
  for (const bool named : {false, true}) {
    EmptyNewDrive();
    const Lines lines = PlaceInChild(jobs, [&] {
      std::vector<Refusal> refusals = {{SYS_syncfs, EIO}, {SYS_fsync, EIO}};
      if (named) {
        for (const Refusal& each : WithoutUnnamedFiles()) refusals.push_back(each);
      }
      return RefuseCalls(refusals);
    });
    if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
    EXPECT_EQ(lines, Lines(10, "failed: the new file cannot be written: the disk failed"));
    EXPECT_EQ(NamesIn(New("C")), (std::vector<std::string>{"Songs", "Songs/Pop", "Songs/Rock"}));
  }
}

/// Folders of the new machine that become links while songs are on their way into them.
class MeddledPlacerTest : public PlacerDiskTest {
 protected:
  MeddledPlacerTest() {
    Put(Outside("away/Pop/kept.mp3"), "not ours");
    Put(Disk("C/1.mp3"), "one");
    Put(Disk("C/2.mp3"), "two");
    Put(New("C/Songs/Pop/0.mp3"), "zero");
  }

  /// Turns the folder of the songs into a link.
  void Meddle() const {
    std::filesystem::rename(New("C/Songs"), New("C/Was"));
    std::filesystem::create_directory_symlink(Outside("away"), New("C/Songs"));
  }
  void PutBack() {
    RestartBoth();
    std::filesystem::remove_all(New("C"));
    Put(New("C/Songs/Pop/0.mp3"), "zero");
  }

  /// Each with what it refuses.
  static std::vector<std::vector<Refusal>> Systems() {
    return {
        {},
        {{SYS_openat2, ENOSYS}},
        {{SYS_openat2, EPERM}},
        {{SYS_openat2, E2BIG}},
        WithoutUnnamedFiles(),
        {{SYS_openat, EOPNOTSUPP, 2, O_TMPFILE}, {SYS_openat2, EINVAL}, {SYS_renameat2, EINVAL}}};
  }
};

TEST_F(MeddledPlacerTest, NoSongGetsItsNameInAFolderThatBecameALink) {
  for (const std::vector<Refusal>& refusals : Systems()) {
    PutBack();
    const Lines lines = PlaceInChild(
        {{u"C:\\1.mp3", u"C:\\Songs\\Pop\\1.mp3"}}, [&] { return RefuseCalls(refusals); },
        PlaceMode::Copy, [this] { Meddle(); });
    if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
    EXPECT_EQ(lines, Lines{"failed: the new file cannot be written: something else stands where it "
                           "or its folder should"});
    EXPECT_EQ(NamesIn(Outside("away")), (Names{"Pop", "Pop/kept.mp3"}));
    EXPECT_EQ(NamesIn(New("C/Was")), (Names{"Pop", "Pop/0.mp3"}));
  }
}

TEST_F(MeddledPlacerTest, NoFolderIsMadeBelowOneThatBecameALink) {
  const std::vector<PlaceJob> jobs = {{u"C:\\1.mp3", u"C:\\Songs\\Pop\\1.mp3"},
                                      {u"C:\\2.mp3", u"C:\\Songs\\Pop\\New\\2.mp3"}};
  for (const std::vector<Refusal>& refusals : Systems()) {
    PutBack();
    const Lines lines = PlaceInChild(
        jobs,
        [&] {
          NewMachine().Files().FolderExists(u"C:\\Songs\\Pop");
          return RefuseCalls(refusals);
        },
        PlaceMode::Copy,
        [this, isFirst = std::make_shared<bool>(true)] {
          if (std::exchange(*isFirst, false)) Meddle();
        });
    if (lines == Lines{"skipped"}) GTEST_SKIP() << "no call can be refused here";
    EXPECT_TRUE(lines.at(1).starts_with("failed: ")) << lines.at(1);
    EXPECT_EQ(NamesIn(Outside("away")), (Names{"Pop", "Pop/kept.mp3"}));
  }
}

/// Runs over the same jobs that are stopped at some point, and then one that is not.
class StoppedPlacerTest : public PlacerDiskTest {
 protected:
  /// Ends with a stop, unless it is over before; false where a test like this cannot be made.
  bool RunUntilStopped(const std::vector<PlaceJob>& jobs, const std::vector<Refusal>& refusals,
                       const std::function<void(PlaceNotes&)>& prepare = {}) {
    const int status = StatusOfChild([&] {
      const rlimit few = {40, 40};  // batches of ten
      if (::setrlimit(RLIMIT_NOFILE, &few) != 0 || !RefuseCalls(refusals)) return kSkip;
      PlaceNotes notes(jobs.size());
      if (prepare) prepare(notes);
      Place(jobs, notes);
      return 0;
    });
    stopped_ = WIFSIGNALED(status);
    return stopped_ || (WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }

  /// The shortest time of some runs that nobody stops: a moment behind the end of a run would
  /// stop nothing.
  std::optional<std::chrono::microseconds> TimeOfWholeRun(const std::vector<PlaceJob>& jobs,
                                                          const std::vector<Refusal>& refusals) {
    auto shortest = std::chrono::microseconds::max();
    for (int run = 0; run < 3; ++run) {
      EmptyNewDrive();
      const auto start = std::chrono::steady_clock::now();
      if (!RunUntilStopped(jobs, refusals)) return std::nullopt;
      EXPECT_FALSE(stopped_);
      shortest = std::min(shortest, std::chrono::duration_cast<std::chrono::microseconds>(
                                        std::chrono::steady_clock::now() - start));
    }
    return shortest;
  }

  void ExpectCompletedBySecondRun(const std::vector<PlaceJob>& jobs,
                                  const std::vector<Refusal>& refusals,
                                  const std::map<std::string, std::string>& expected) {
    const Lines lines = PlaceInChild(jobs, [&] { return RefuseCalls(refusals); });
    for (const std::string& line : lines) {
      EXPECT_TRUE(line == "copied" || line == "already there") << line;
    }
    EXPECT_EQ(Tree(New("C")), expected);
  }

  bool stopped_ = false;
};

TEST_F(StoppedPlacerTest, AtAnyCallASecondRunCompletesTheFirst) {
  const std::vector<PlaceJob> jobs = MakeSongs(25, 3000);
  const std::map<std::string, std::string> expected = TreeAfterOneRun(jobs);
  const std::vector<Refusal> noRename = {
      {SYS_openat2, ENOSYS}, {SYS_openat, EOPNOTSUPP, 2, O_TMPFILE}, {SYS_renameat2, EINVAL}};
  struct Row {
    const char* name;
    std::vector<Refusal> refusals;
    long stopAt;
  };
  const Row rows[] = {
      {"unnamed, copying", {}, SYS_copy_file_range},
      {"unnamed, flushing", {}, SYS_syncfs},
      {"unnamed, naming", {}, SYS_linkat},
      {"named, copying", WithoutUnnamedFiles(), SYS_copy_file_range},
      {"named, setting the times", WithoutUnnamedFiles(), SYS_utimensat},
      {"named, flushing", WithoutUnnamedFiles(), SYS_syncfs},
      {"named, naming", WithoutUnnamedFiles(), SYS_renameat2},
      {"named twice, the second name", noRename, SYS_linkat},
      {"named twice, taking the first away", noRename, SYS_unlinkat},
  };
  for (const Row& row : rows) {
    EmptyNewDrive();
    std::vector<Refusal> refusals = {{row.stopAt, 0}};
    refusals.insert(refusals.end(), row.refusals.begin(), row.refusals.end());
    if (!RunUntilStopped(jobs, refusals)) GTEST_SKIP() << "no call can be refused here";
    EXPECT_TRUE(stopped_) << row.name;
    SCOPED_TRACE(row.name);
    ExpectCompletedBySecondRun(jobs, row.refusals, expected);
  }
}

TEST_F(StoppedPlacerTest, AtAnyReportASecondRunCompletesTheFirst) {
  const std::vector<PlaceJob> jobs = MakeSongs(25, 3000);
  const std::map<std::string, std::string> expected = TreeAfterOneRun(jobs);
  for (const bool named : {false, true}) {
    const std::vector<Refusal> refusals = named ? WithoutUnnamedFiles() : std::vector<Refusal>();
    for (int stop = 1; stop <= 50; stop += 7) {
      EmptyNewDrive();
      const bool possible = RunUntilStopped(jobs, refusals, [stop](PlaceNotes& notes) {
        const auto count = [left = std::make_shared<int>(stop)] {
          if (--*left == 0) ::raise(SIGKILL);
        };
        notes.onBytes = count;
        notes.onPlaced = count;
      });
      if (!possible) GTEST_SKIP() << "no call can be refused here";
      EXPECT_TRUE(stopped_) << stop;
      SCOPED_TRACE(stop);
      ExpectCompletedBySecondRun(jobs, refusals, expected);
    }
  }
}

TEST_F(StoppedPlacerTest, AtAnyMomentASecondRunCompletesTheFirst) {
  using namespace std::chrono_literals;
  constexpr int kMoments = 12;
  const std::vector<PlaceJob> jobs = MakeSongs(60, 20000);
  const std::map<std::string, std::string> expected = TreeAfterOneRun(jobs);
  for (const bool named : {false, true}) {
    const std::vector<Refusal> refusals = named ? WithoutUnnamedFiles() : std::vector<Refusal>();
    const auto whole = TimeOfWholeRun(jobs, refusals);
    if (!whole) GTEST_SKIP() << "no call can be refused here";
    int stopped = 0;
    for (int moment = 1; moment <= kMoments; ++moment) {
      EmptyNewDrive();
      const std::chrono::microseconds wait = *whole * moment / (kMoments + 1);
      const bool possible = RunUntilStopped(jobs, refusals, [wait](PlaceNotes&) {
        // The alarm's default is the end of the process, at whatever it is doing.
        const itimerval soon = {{0, 0}, {wait / 1s, (wait % 1s).count()}};
        ::signal(SIGALRM, SIG_DFL);
        ::setitimer(ITIMER_REAL, &soon, nullptr);
      });
      ASSERT_TRUE(possible);
      if (stopped_) ++stopped;
      SCOPED_TRACE(moment);
      ExpectCompletedBySecondRun(jobs, refusals, expected);
    }
    EXPECT_GT(stopped, 0) << "of " << kMoments << " runs of " << whole->count() << " microseconds";
  }
}

}  // namespace
}  // namespace norvo

#endif
