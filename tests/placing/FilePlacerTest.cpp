#include "placing/FilePlacer.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "PlacerTest.h"

namespace norvo {
namespace {

class FilePlacerTest : public PlacerTest {};

TEST_F(FilePlacerTest, CopiesBytesAndTimes) {
  const std::string bytes = Noise(3 * kMegabyte + 17);
  Put(Disk("C/Music/Song.mp3"), bytes);
  SetTimes(Disk("C/Music/Song.mp3"), {1100000000, 123456789}, {1000000000, 987654321});
  EXPECT_EQ(PlaceOne(u"C:\\Music\\Song.mp3", u"C:\\Songs\\Song.mp3"), "copied");
  const struct stat made = StatOf(New("C/Songs/Song.mp3"));
  EXPECT_EQ(made.st_mtim.tv_sec, 1000000000);
  EXPECT_EQ(made.st_mtim.tv_nsec, 987654321);
  EXPECT_EQ(made.st_atim.tv_sec, 1100000000);
  EXPECT_EQ(made.st_atim.tv_nsec, 123456789);
  EXPECT_EQ(Get(New("C/Songs/Song.mp3")), bytes);
  EXPECT_EQ(NamesIn(New("C")), (Names{"Songs", "Songs/Song.mp3"}));
}

TEST_F(FilePlacerTest, AnEmptyFileIsCopiedToo) {
  Put(Disk("C/empty.mp3"), "");
  EXPECT_EQ(PlaceOne(u"C:\\empty.mp3", u"C:\\empty.mp3"), "copied");
  EXPECT_EQ(Get(New("C/empty.mp3")), "");
  EXPECT_EQ(NamesIn(New("C")), Names{"empty.mp3"});
}

#ifdef O_NOATIME

TEST_F(FilePlacerTest, TheSourceStaysAsItIsEvenItsLastAccess) {
  Put(Disk("C/a.mp3"), "12345");
  SetTimes(Disk("C/a.mp3"), {1000000000, 1}, {1100000000, 2});
  PlaceOne(u"C:\\a.mp3", u"C:\\a.mp3");
  EXPECT_EQ(PlaceOne(u"C:\\a.mp3", u"C:\\a.mp3"), "already there");
  for (const std::filesystem::path& path : {Disk("C/a.mp3"), New("C/a.mp3")}) {
    EXPECT_EQ(StatOf(path).st_atim.tv_sec, 1000000000) << path;
  }
}

#endif

TEST_F(FilePlacerTest, TheOwnerMayWriteTheCopyAndNobodyExecutesIt) {
  struct Row {
    mode_t source;
    mode_t copy;
  };
  const mode_t mask = ::umask(022);
  for (const Row& row :
       {Row{0444, 0644}, Row{0777, 0644}, Row{0400, 0600}, Row{0640, 0640}, Row{07555, 0644}}) {
    const std::filesystem::path name = std::to_string(row.source) + ".mp3";
    Put(Disk("C") / name, "x");
    ASSERT_EQ(::chmod((Disk("C") / name).c_str(), row.source), 0);
    const String path = u"C:\\" + FromUtf8Lossy(name.string());
    EXPECT_EQ(PlaceOne(path, path), "copied");
    EXPECT_EQ(StatOf(New("C") / name).st_mode & 07777u, row.copy) << name;
  }
  ::umask(mask);
}

TEST_F(FilePlacerTest, MissingFoldersAreCreatedAndExistingOnesUsedInAnyCase) {
  Put(Disk("C/a.mp3"), "a");
  std::filesystem::create_directories(New("C/Mein Ärger"));
  EXPECT_EQ(Place({{u"C:\\a.mp3", u"C:\\mein ärger\\x\\y\\1.mp3"},
                   {u"C:\\a.mp3", u"c:/MEIN ÄRGER/X/2.mp3"},
                   {u"C:\\a.mp3", u"C:\\Mein Ärger. \\.\\x\\z\\..\\3.mp3"},
                   {u"C:\\a.mp3", u"C:4.mp3"},
                   {u"C:\\a.mp3", u"5.mp3"}}),
            Lines(5, "copied"));
  EXPECT_EQ(NamesIn(New("C")),
            (Names{"4.mp3", "5.mp3", "Mein Ärger", "Mein Ärger/x", "Mein Ärger/x/2.mp3",
                   "Mein Ärger/x/3.mp3", "Mein Ärger/x/y", "Mein Ärger/x/y/1.mp3"}));
}

TEST_F(FilePlacerTest, MoreFilesThanOneBatchHolds) {
  std::vector<PlaceJob> jobs;
  for (int i = 0; i < 2300; ++i) {
    const std::string name = std::to_string(i % 7) + "/" + std::to_string(i);
    Put(Disk("C") / name, name);
    const String path = u"C:\\" + FromUtf8Lossy(name);
    jobs.push_back({path, path});
  }
  const std::map<std::string, std::string> tree = Tree(Disk("C"));
  EXPECT_EQ(Place(jobs), Lines(jobs.size(), "copied"));
  EXPECT_EQ(Tree(New("C")), tree);
}

TEST_F(FilePlacerTest, ASmallLimitOfOpenFilesMakesSmallBatches) {
  std::vector<PlaceJob> jobs;
  for (int i = 0; i < 100; ++i) {
    const std::string name = std::to_string(i);
    Put(Disk("C") / name, name);
    jobs.push_back({u"C:\\" + FromUtf8Lossy(name), u"C:\\m\\" + FromUtf8Lossy(name)});
  }
  EXPECT_EQ(PlaceInChild(jobs,
                         [] {
                           const rlimit few = {32, 32};
                           return ::setrlimit(RLIMIT_NOFILE, &few) == 0;
                         }),
            Lines(jobs.size(), "copied"));
}

TEST_F(FilePlacerTest, TheSameFileIsLeftAsItIs) {
  Put(Disk("C/a.mp3"), "12345");
  Put(New("C/Songs/A.MP3"), "12345");
  const struct stat before = StatOf(New("C/Songs/A.MP3"));
  PlaceNotes notes(1);
  Place({{u"C:\\a.mp3", u"C:\\SONGS\\a.mp3"}}, notes);
  EXPECT_EQ(notes.lines, Lines{"already there"});
  EXPECT_EQ(notes.bytes, 5u);
  const struct stat after = StatOf(New("C/Songs/A.MP3"));
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  EXPECT_EQ(NamesIn(New("C")), (Names{"Songs", "Songs/A.MP3"}));
}

TEST_F(FilePlacerTest, AnotherFileIsNeverReplaced) {
  const std::string one = Noise(kMegabyte + 5);
  std::string two = one;
  two.back() ^= 1;
  Put(Disk("C/size.mp3"), "12345");
  Put(Disk("C/content.mp3"), one);
  Put(Disk("C/case.mp3"), "12345");
  Put(New("C/size.mp3"), "1234");
  Put(New("C/content.mp3"), two);
  Put(New("C/CASE.mp3"), "54321");
  EXPECT_EQ(Place({{u"C:\\size.mp3", u"C:\\size.mp3"},
                   {u"C:\\content.mp3", u"C:\\content.mp3"},
                   {u"C:\\case.mp3", u"C:\\case.mp3"}}),
            Lines(3, "failed: another file of that name is there already"));
  EXPECT_EQ(NamesIn(New("C")), (Names{"CASE.mp3", "content.mp3", "size.mp3"}));
  EXPECT_EQ(Get(New("C/size.mp3")), "1234");
  EXPECT_EQ(Get(New("C/content.mp3")), two);
  EXPECT_EQ(Get(New("C/CASE.mp3")), "54321");
}

TEST_F(FilePlacerTest, AFolderOfThatNameIsInTheWay) {
  Put(Disk("C/a.mp3"), "a");
  std::filesystem::create_directories(New("C/A.MP3"));
  EXPECT_EQ(PlaceOne(u"C:\\a.mp3", u"C:\\a.mp3"), "failed: a folder of that name is there already");
}

TEST_F(FilePlacerTest, AFileWhereAFolderIsNeeded) {
  Put(Disk("C/a.mp3"), "a");
  Put(New("C/Music"), "x");
  EXPECT_EQ(PlaceOne(u"C:\\a.mp3", u"C:\\Music\\Pop\\a.mp3"),
            "failed: the new file cannot be written: something else stands where it or its folder "
            "should");
  EXPECT_EQ(Get(New("C/Music")), "x");
}

TEST_F(FilePlacerTest, TwoJobsForOneTarget) {
  Put(Disk("C/a.mp3"), "same");
  Put(Disk("C/b.mp3"), "same");
  Put(Disk("C/c.mp3"), "other");
  EXPECT_EQ(
      Place({{u"C:\\a.mp3", u"C:\\m\\Song.mp3"},
             {u"C:\\b.mp3", u"C:\\M\\SONG.mp3"},
             {u"C:\\c.mp3", u"c:/m/song.mp3. "}}),
      (Lines{"copied", "already there", "failed: another file of that name is there already"}));
  EXPECT_EQ(NamesIn(New("C")), (Names{"m", "m/Song.mp3"}));
}

TEST_F(FilePlacerTest, TwoWaysToOneFolderAreOneFolder) {
  Put(Disk("C/a.mp3"), "a");
  Put(Disk("C/b.mp3"), "b");
  std::filesystem::create_directories(New("C/real"));
  std::filesystem::create_directory_symlink("real", New("C/alias"));
  EXPECT_EQ(Place({{u"C:\\a.mp3", u"C:\\real\\Song.mp3"}, {u"C:\\b.mp3", u"C:\\alias\\SONG.mp3"}}),
            (Lines{"copied", "failed: another file of that name is there already"}));
}

TEST_F(FilePlacerTest, AJobThatFailsLeavesItsNameToAnother) {
  Put(Disk("C/b.mp3"), "b");
  EXPECT_EQ(Place({{u"C:\\missing.mp3", u"C:\\x.mp3"}, {u"C:\\b.mp3", u"C:\\X.mp3"}}),
            (Lines{"failed: the old file is not there any more", "copied"}));
  EXPECT_EQ(Get(New("C/X.mp3")), "b");
}

TEST_F(FilePlacerTest, WhatIsNoSourceFailsAndTheOthersGoOn) {
  Put(Disk("C/folder/a.mp3"), "a");
  ASSERT_EQ(::mkfifo(Disk("C/pipe.mp3").c_str(), 0666), 0);
  EXPECT_EQ(Place({{u"C:\\missing.mp3", u"C:\\1.mp3"},
                   {u"C:\\nowhere\\a.mp3", u"C:\\2.mp3"},
                   {u"X:\\a.mp3", u"C:\\3.mp3"},
                   {u"", u"C:\\4.mp3"},
                   {u"C:\\folder", u"C:\\5.mp3"},
                   {u"C:\\FOLDER\\", u"C:\\6.mp3"},
                   {u"C:\\pipe.mp3", u"C:\\7.mp3"},
                   {u"C:\\folder\\A.mp3", u"C:\\8.mp3"}}),
            (Lines{"failed: the old file is not there any more",
                   "failed: the old file is not there any more",
                   "failed: the old file is not there any more",
                   "failed: the old file is not there any more",
                   "failed: the old one is no file but a folder or a device",
                   "failed: the old one is no file but a folder or a device",
                   "failed: the old one is no file but a folder or a device", "copied"}));
  EXPECT_EQ(NamesIn(New("C")), Names{"8.mp3"});
}

TEST_F(FilePlacerTest, WhatCanBeNoTargetFailsAndTheOthersGoOn) {
  Put(Disk("C/a.mp3"), "a");
  const String source = u"C:\\a.mp3";
  const std::string noName = "failed: the new file cannot be written: the name cannot be a file's";
  const std::string tooLong = "failed: the new file cannot be written: the name is too long";
  EXPECT_EQ(Place({{source, u""},
                   {source, u"C:\\"},
                   {source, u"C:\\folder\\"},
                   {source, u"C:\\..."},
                   {source, u"C:\\a\n.mp3"},
                   {source, u"X:\\a.mp3"},
                   {source, u"C:\\" + String(300, u'a')},
                   {source, u"C:\\" + String(300, u'b') + u"\\a.mp3"},
                   {source, u"C:\\" + String(100000, u'c')},
                   {source, u"C:\\b.mp3"}}),
            (Lines{noName, noName, noName, noName, noName,
                   "failed: the new file cannot be written: there is no such drive, folder or file",
                   tooLong, tooLong, tooLong, "copied"}));
  EXPECT_TRUE(std::filesystem::exists(New("C/b.mp3")));
}

TEST_F(FilePlacerTest, NoLinkAndNoPointsLeadOutOfADrive) {
  Put(Outside("secret/a.mp3"), "secret");
  Put(Disk("C/own.mp3"), "own");
  std::filesystem::create_directory_symlink(Outside("secret"), Disk("C/away"));
  std::filesystem::create_symlink(Outside("secret/a.mp3"), Disk("C/link.mp3"));
  std::filesystem::create_directory_symlink(Outside("secret"), New("C/away"));
  std::filesystem::create_symlink(Outside("secret/new.mp3"), New("C/link.mp3"));
  const std::map<std::string, std::string> before = Tree(Outside("secret"));
  const std::string blocked =
      "failed: the new file cannot be written: something else stands where it or its folder should";
  EXPECT_EQ(Place({{u"C:\\away\\a.mp3", u"C:\\1.mp3"},
                   {u"C:\\link.mp3", u"C:\\2.mp3"},
                   {u"C:\\..\\..\\secret\\a.mp3", u"C:\\3.mp3"},
                   {u"C:\\own.mp3", u"C:\\away\\4.mp3"},
                   {u"C:\\own.mp3", u"C:\\link.mp3"},
                   {u"C:\\own.mp3", u"C:\\..\\..\\secret\\5.mp3"}}),
            (Lines{"failed: the old file is not there any more",
                   "failed: the old file is not there any more",
                   "failed: the old file is not there any more", blocked, blocked, "copied"}));
  EXPECT_EQ(Tree(Outside("secret")), before);
  EXPECT_EQ(Get(New("C/secret/5.mp3")), "own");
}

TEST_F(FilePlacerTest, ATargetThatBecomesALinkOutOfTheDriveMeanwhileIsNotFollowed) {
  Put(Disk("C/a.mp3"), "a");
  std::filesystem::create_directories(Outside("away"));
  std::filesystem::create_directories(New("C/m"));
  PlaceNotes notes(1);
  notes.onBytes = [&] {
    std::filesystem::remove(New("C/m"));
    std::filesystem::create_directory_symlink(Outside("away"), New("C/m"));
  };
  Place({{u"C:\\a.mp3", u"C:\\m\\a.mp3"}}, notes);
  EXPECT_TRUE(notes.lines.front().starts_with("failed: ")) << notes.lines.front();
  EXPECT_TRUE(std::filesystem::is_empty(Outside("away")));
}

TEST_F(FilePlacerTest, WhatSomebodyElsePutsThereMeanwhileIsNeverReplaced) {
  for (const PlaceMode mode : {PlaceMode::Copy, PlaceMode::Link}) {
    RestartBoth();
    std::filesystem::remove_all(New("C"));
    std::filesystem::create_directories(New("C"));
    for (const char* const name : {"first", "other", "same", "folder"}) Put(Disk("C") / name, name);
    PlaceNotes notes(4);
    bool done = false;
    notes.onBytes = [&] {
      if (std::exchange(done, true)) return;
      Put(New("C/other"), "1");
      Put(New("C/same"), "same");
      std::filesystem::create_directories(New("C/folder"));
    };
    Place({{u"C:\\first", u"C:\\first"},
           {u"C:\\other", u"C:\\other"},
           {u"C:\\same", u"C:\\same"},
           {u"C:\\folder", u"C:\\folder"}},
          notes, mode);
    EXPECT_EQ(notes.lines,
              (Lines{mode == PlaceMode::Copy ? "copied" : "linked",
                     "failed: another file of that name is there already", "already there",
                     "failed: a folder of that name is there already"}));
    EXPECT_EQ(Get(New("C/other")), "1");
    EXPECT_EQ(NamesIn(New("C")), (Names{"first", "folder", "other", "same"}));
  }
}

TEST_F(FilePlacerTest, ASourceThatChangesWhileItIsReadFailsAndLeavesNothing) {
  const auto place = [this](const std::function<void()>& change) {
    Put(Disk("C/a.mp3"), Noise(4 * kMegabyte));
    RestartBoth();
    PlaceNotes notes(1);
    bool done = false;
    notes.onBytes = [&] {
      if (!std::exchange(done, true)) change();
    };
    Place({{u"C:\\a.mp3", u"C:\\a.mp3"}}, notes);
    EXPECT_TRUE(NamesIn(New("C")).empty());
    return notes.lines.front();
  };
  const std::string changed = "failed: the old file changed while it was read";
  const std::filesystem::path path = Disk("C/a.mp3");
  EXPECT_EQ(place([&] { std::filesystem::resize_file(path, kMegabyte * 3 / 2); }), changed);
  EXPECT_EQ(place([&] { std::ofstream(path, std::ios::app) << "more"; }), changed);
  EXPECT_EQ(place([&] {
              std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
              file.seekp(10);
              file << "new";
            }),
            changed);
}

TEST_F(FilePlacerTest, ProgressIsToldAtLeastOncePerMegabyte) {
  Put(Disk("C/a.mp3"), Noise(5 * kMegabyte));
  Put(Disk("C/b.mp3"), Noise(3 * kMegabyte));
  Put(New("C/b.mp3"), Noise(3 * kMegabyte));
  PlaceNotes notes(2);
  std::uint64_t last = 0;
  std::uint64_t largest = 0;
  notes.onBytes = [&] {
    largest = std::max(largest, notes.bytes - last);
    last = notes.bytes;
  };
  Place({{u"C:\\a.mp3", u"C:\\a.mp3"}, {u"C:\\b.mp3", u"C:\\b.mp3"}}, notes);
  EXPECT_EQ(notes.lines, (Lines{"copied", "already there"}));
  EXPECT_EQ(notes.bytes, 8 * kMegabyte);
  // A disk that shares the blocks of the two files is done at once.
  EXPECT_TRUE(largest <= kMegabyte || largest == 5 * kMegabyte) << largest;
}

TEST_F(FilePlacerTest, WhatTheListenerThrowsEndsTheWorkAndLeavesNothingHalfWritten) {
  for (const char* const name : {"a", "b", "c"}) Put(Disk("C") / name, name);
  const std::vector<PlaceJob> jobs = {
      {u"C:\\a", u"C:\\a"}, {u"C:\\b", u"C:\\b"}, {u"C:\\c", u"C:\\c"}};
  PlaceNotes notes(jobs.size());
  notes.onBytes = [&] {
    if (notes.bytes == 2) throw std::runtime_error("stop");
  };
  EXPECT_THROW(Place(jobs, notes), std::runtime_error);
  EXPECT_TRUE(NamesIn(New("C")).empty());
  EXPECT_EQ(Place(jobs), Lines(3, "copied"));
}

TEST_F(FilePlacerTest, FilesThatTheSystemFindsTooLargeFailAndSmallOnesGoOn) {
  Put(Disk("C/big.mp3"), Noise(2 * kMegabyte));
  Put(Disk("C/small.mp3"), "small");
  const std::vector<PlaceJob> jobs = {{u"C:\\big.mp3", u"C:\\big.mp3"},
                                      {u"C:\\small.mp3", u"C:\\small.mp3"},
                                      {u"C:\\big.mp3", u"C:\\again.mp3"}};
  const std::string tooLarge =
      "failed: the file cannot be copied: the file is larger than the disk or the system allows";
  EXPECT_EQ(PlaceInChild(jobs,
                         [] {
                           ::signal(SIGXFSZ, SIG_IGN);
                           const rlimit limit = {kMegabyte, kMegabyte};
                           return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
                         }),
            (Lines{tooLarge, "copied", tooLarge}));
  EXPECT_EQ(NamesIn(New("C")), Names{"small.mp3"});
}

TEST_F(FilePlacerTest, WithoutTheRightsToReadOrWrite) {
  Put(Disk("C/open.mp3"), "a");
  Put(Disk("C/closed.mp3"), "a");
  std::filesystem::create_directories(New("C/closed"));
  std::filesystem::create_directories(New("C/open"));
  Put(New("C/open/closed.mp3"), "a");
  const auto set = [](const std::filesystem::path& path, mode_t mode) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0) << path;
  };
  set(Outside("."), 0777);
  set(Disk("C/open.mp3"), 0644);
  set(Disk("C/closed.mp3"), 0);
  set(New("C/open"), 0777);
  set(New("C/closed"), 0555);
  set(New("C/open/closed.mp3"), 0);
  const Lines lines =
      PlaceInChild({{u"C:\\closed.mp3", u"C:\\open\\1.mp3"},
                    {u"C:\\open.mp3", u"C:\\closed\\2.mp3"},
                    {u"C:\\open.mp3", u"C:\\closed\\new\\3.mp3"},
                    {u"C:\\open.mp3", u"C:\\open\\closed.mp3"},
                    {u"C:\\open.mp3", u"C:\\open\\4.mp3"}},
                   [] { return ::geteuid() != 0 || ::setresuid(65534, 65534, 65534) == 0; });
  EXPECT_EQ(lines, (Lines{"failed: the old file cannot be read: permission denied",
                          "failed: the new file cannot be written: permission denied",
                          "failed: the new file cannot be written: permission denied",
                          "failed: a file of that name is there already and cannot be compared: "
                          "permission denied",
                          "copied"}));
  set(New("C/closed"), 0755);
  EXPECT_EQ(NamesIn(New("C")), (Names{"closed", "open", "open/4.mp3", "open/closed.mp3"}));
}

TEST_F(FilePlacerTest, WhatMayNotBeSeenIsBlocked) {
  Put(Disk("C/a.mp3"), "a");
  std::filesystem::create_directories(New("C/closed"));
  for (const std::filesystem::path& folder : {Outside("."), New("C")}) {
    ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
  }
  ASSERT_EQ(::chmod(New("C/closed").c_str(), 0444), 0);  // names can be read, and nothing else
  const int answer = ExitOfChild([&] {
    if (::geteuid() == 0 && ::setresuid(65534, 65534, 65534) != 0) return 2;
    return FilePlacer(Machine(), NewMachine()).IsBlocked(u"C:\\closed\\a.mp3") ? 0 : 1;
  });
  EXPECT_EQ(answer, 0);
  ASSERT_EQ(::chmod(New("C/closed").c_str(), 0755), 0);
}

TEST_F(FilePlacerTest, TheSameMeansSizeAndContent) {
  Put(Disk("C/a.mp3"), "12345");
  Put(Disk("C/empty.mp3"), "");
  Put(New("C/Same.mp3"), "12345");
  Put(New("C/content.mp3"), "12346");
  Put(New("C/size.mp3"), "123456");
  Put(New("C/empty.mp3"), "");
  std::filesystem::create_hard_link(Disk("C/a.mp3"), New("C/link.mp3"));
  FilePlacer placer(Machine(), NewMachine());
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\same.MP3"), Comparison::Same);
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\link.mp3"), Comparison::Same);
  EXPECT_EQ(placer.Compare(u"C:\\empty.mp3", u"C:\\empty.mp3"), Comparison::Same);
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\content.mp3"), Comparison::Other);
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\size.mp3"), Comparison::Other);
  EXPECT_EQ(placer.Compare(u"C:\\missing.mp3", u"C:\\same.mp3"), Comparison::Other);
  EXPECT_EQ(placer.Compare(u"", u""), Comparison::Other);
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\missing.mp3"), Comparison::Unknown);
  EXPECT_EQ(placer.Compare(u"C:\\a.mp3", u"C:\\"), Comparison::Unknown);
}

TEST_F(FilePlacerTest, TellsWhatNoFileCanReplace) {
  std::filesystem::create_directories(New("C/m/folder.mp3"));
  std::filesystem::create_symlink("nowhere", New("C/m/link.mp3"));
  std::ofstream(New("C/m/file.mp3")) << "x";
  FilePlacer placer(Machine(), NewMachine());
  EXPECT_TRUE(placer.IsBlocked(u"C:\\m\\FOLDER.mp3"));
  EXPECT_TRUE(placer.IsBlocked(u"C:\\m\\link.mp3"));
  EXPECT_FALSE(placer.IsBlocked(u"C:\\m\\file.mp3"));
  EXPECT_FALSE(placer.IsBlocked(u"C:\\m\\absent.mp3"));
  EXPECT_FALSE(placer.IsBlocked(u"C:\\absent\\a.mp3"));
  EXPECT_FALSE(std::filesystem::exists(New("C/absent")));
}

TEST_F(FilePlacerTest, OneFileHasOneIdentityHoweverItsPathIsSpelled) {
  Put(Disk("C/Music/One.mp3"), "x");
  Put(Disk("C/Music/Two.mp3"), "x");
  std::filesystem::create_symlink("One.mp3", Disk("C/Music/link.mp3"));
  std::filesystem::create_directory_symlink("Music", Disk("C/Songs"));
  FilePlacer placer(Machine(), NewMachine());
  const std::string one = placer.IdentityOf(u"C:\\Music\\One.mp3");
  EXPECT_EQ(one, Disk("C/Music/One.mp3"));
  EXPECT_EQ(placer.IdentityOf(u"c:/MUSIC/one.mp3"), one);
  EXPECT_EQ(placer.IdentityOf(u"\\Music\\x\\..\\One.mp3"), one);
  EXPECT_EQ(placer.IdentityOf(u"C:\\Songs\\link.mp3"), one);
  EXPECT_NE(placer.IdentityOf(u"C:\\Music\\Two.mp3"), one);
  EXPECT_EQ(placer.IdentityOf(u"C:\\missing.mp3"), "C:\\missing.mp3");
}

}  // namespace
}  // namespace norvo
