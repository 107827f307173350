#include "host/overlay/OverlayPlatform.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <memory>

#include "automation/RunTimeError.h"
#include "host/HostFixture.h"
#include "library/Library.h"
#include "platform/hosted/HostedPlatform.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"
#include "text/Encoding.h"

namespace norvo::host {
namespace {

using Paths = std::vector<String>;

FileFacts Planned(StringView name = {}) {
  return {String(name), 4711, 1000, 2'000'000'000'000};
}

/// One overlay over a machine in a folder. After each test the folder must be as it was when the
/// overlay was made: bytes, kinds and times.
class OverlayPlatformTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    WriteFile(Place("C/Music/One.mp3"), "one");
    WriteFile(Place("C/Music/Mix.m3u"), "#EXTM3U\r\n");
    WriteFile(Place("C/Old.txt"), "old");
    WriteFile(
        Place("registry.reg"),
        "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo]\r\n"
        "\"Text\"=\"below\"\r\n\"Number\"=dword:00000007\r\n\r\n");
  }

  void TearDown() override {
    ASSERT_TRUE(overlay_) << "nothing was tested";
    EXPECT_EQ(StateBelow(), before_);
  }

  OverlayPlatform& Overlay() {
    if (!overlay_) {
      SetTimesBack();
      before_ = StateBelow();
      below_ = std::make_shared<HostedPlatform>(Machine());
      overlay_ = std::make_shared<OverlayPlatform>(below_);
    }
    return *overlay_;
  }
  std::shared_ptr<OverlayPlatform> SharedOverlay() {
    Overlay();
    return overlay_;
  }
  /// The machine below once more, with the times of its files.
  fs::path CopyOfMachine() {
    Overlay();
    const fs::path copy = Root() / "copy";
    fs::copy(Machine(), copy, fs::copy_options::recursive);
    for (const auto& [path, bytes] : Snapshot(Machine())) {
      fs::last_write_time(copy / fs::relative(path, Machine()), fs::last_write_time(path));
    }
    return copy;
  }
  FileSystem& Files() { return Overlay().Files(); }
  FileSystem& FilesBelow() { return below_->Files(); }
  HostedPlatform& Below() {
    Overlay();
    return *below_;
  }

  /// Number of the run-time error that the work raises; 0 without one.
  static std::int32_t ErrorOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const RunTimeError& failure) {
      return failure.Number();
    }
    return 0;
  }

  std::string Read(StringView path) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReading(path);
    std::string bytes(static_cast<std::size_t>(file->Size()) + 10, '\0');
    bytes.resize(file->ReadAt(0, bytes));
    return bytes;
  }
  void Append(StringView path, std::string_view bytes, bool create = true) {
    Files().OpenForAppending(path, create)->Append(bytes);
  }
  void Write(StringView path, const std::string& bytes) { Overlay().Settings().Write(path, bytes); }

  /// "Folder\" and "file" in name order.
  Paths Names(StringView folder, std::vector<StringView> endings = {}) {
    Paths names;
    for (const FolderItem& item : ListSorted(Files(), folder, endings)) {
      names.push_back(item.isFolder ? item.name + u"\\" : item.name);
    }
    return names;
  }

 private:
  /// Everything in the machine's folder, the folder itself included: kind, bytes, and the times of
  /// the last write and of the last change of any other sort.
  std::map<std::string, std::string> StateBelow() const {
    std::map<std::string, std::string> state = Snapshot(Machine());
    state[Machine()] = "";
    for (auto& [path, bytes] : state) {
      struct stat facts = {};
      EXPECT_EQ(::lstat(path.c_str(), &facts), 0) << path;
      std::ostringstream text;
      text << facts.st_mode << ' ' << facts.st_ino << ' ' << facts.st_mtim.tv_sec << '.'
           << facts.st_mtim.tv_nsec << ' ' << facts.st_ctim.tv_sec << '.' << facts.st_ctim.tv_nsec
           << ' ' << bytes;
      bytes = text.str();
    }
    return state;
  }

  /// A disk's clock is coarse: what was just made and is written again might keep its time.
  void SetTimesBack() const {
    const auto past = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    for (const auto& [path, bytes] : Snapshot(Machine())) fs::last_write_time(path, past);
    fs::last_write_time(Machine(), past);
  }

  std::map<std::string, std::string> before_;
  std::shared_ptr<HostedPlatform> below_;
  std::shared_ptr<OverlayPlatform> overlay_;
};

TEST_F(OverlayPlatformTest, ShowsTheMachineBelow) {
  EXPECT_TRUE(Files().FolderExists(u"C:\\Music"));
  EXPECT_TRUE(Files().FolderExists(u"C:\\"));
  EXPECT_FALSE(Files().FolderExists(u"D:\\"));
  EXPECT_FALSE(Files().FolderExists(u""));
  const std::optional<FileFacts> facts = Files().FactsOf(u"c:/MUSIC/one.MP3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"One.mp3");
  EXPECT_EQ(facts->modified, FilesBelow().FactsOf(u"C:\\Music\\One.mp3")->modified);
  EXPECT_EQ(Read(u"C:\\Music\\One.mp3"), "one");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
  EXPECT_EQ(Overlay().Settings().Read(u"C:\\Old.txt"), "old");
  EXPECT_EQ(Files().AbsolutePathName(u"\\a\\..\\b"), u"C:\\b");
  EXPECT_EQ(Files().TypeOfDrive(u"C:"), DriveType::Fixed);
  EXPECT_EQ(Files().Drives().size(), 1u);
  EXPECT_EQ(Files().SystemFolder(), FilesBelow().SystemFolder());
  EXPECT_EQ(Files().LocalDate(0).days, FilesBelow().LocalDate(0).days);
  EXPECT_EQ(Overlay().Product().BaseKey(), u"SOFTWARE\\Norvo\\Migration");
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayPlatformTest, RaisesWhatTheMachineBelowRaises) {
  const auto open = [&](StringView path) { Files().OpenForReading(path); };
  EXPECT_EQ(ErrorOf([&] { open(u"C:\\Music\\Two.mp3"); }), 53);
  EXPECT_EQ(ErrorOf([&] { open(u"C:\\Music"); }), 53);
  EXPECT_EQ(ErrorOf([&] { open(u"C:\\No\\Two.mp3"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(u"C:\\Music\\Two.mp3", true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(u"C:\\No\\Two.mp3", true); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(u"C:\\Music", true); }), 53);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\Two.txt", "x", false); }), 53);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\No\\Two.txt", "x", false); }), 76);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\No\\Two.txt", "x"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\Music", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\Two.txt\\", "x"); }), 53);
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\a\1b.txt", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Names(u"C:\\No"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Names(u"C:\\Old.txt"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\Music"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\Old.txt"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\No\\New"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"D:\\New"); }), 76);
  EXPECT_EQ(ErrorOf([&] { Write(u"", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\Music", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\New\\", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\Old.txt\\New", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"D:\\New\\x.ini", "x"); }), 76);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
}

TEST_F(OverlayPlatformTest, AnswersAsAMachineThatIsChanged) {
  HostedPlatform machine(CopyOfMachine());
  const String longName = u"C:\\" + String(256, u'n');
  const StringView paths[] = {u"",
                              longName,
                              u"C:",
                              u"C:\\",
                              u"C:\\Music",
                              u"C:\\Music\\",
                              u"C:\\Music\\One.mp3\\",
                              u"C:\\No\\a.txt",
                              u"C:\\Old.txt\\a.txt",
                              u"D:\\a.txt",
                              u"\\\\server\\share\\a.txt",
                              u"C:\\a\1.txt",
                              u"C:\\New \\",
                              u"C:\\new. \\a.txt.",
                              u"C:\\NEW\\A.TXT",
                              u"C:\\New",
                              u"C:\\New\\..\\b.txt",
                              u"b.txt"};
  const auto answers = [&](Platform& platform) {
    FileSystem& files = platform.Files();
    std::ostringstream text;
    for (const StringView path : paths) {
      text << '"' << ToUtf8(path) << "\": read " << ErrorOf([&] { files.OpenForReading(path); })
           << ", list " << ErrorOf([&] { files.ListFolder(path, {}); }) << ", delete "
           << ErrorOf([&] { files.RemoveFile(path, true); }) << ", create "
           << ErrorOf([&] { files.CreateFolder(path); }) << ", append "
           << ErrorOf([&] { files.OpenForAppending(path, false); }) << ", append anew "
           << ErrorOf([&] { files.OpenForAppending(path, true); }) << ", write whole "
           << ErrorOf([&] { platform.Settings().Write(path, "bytes"); }) << ", read whole "
           << ErrorOf([&] { platform.Settings().Read(path); }) << ", file "
           << files.FileExists(path) << ", folder " << files.FolderExists(path) << '\n';
    }
    return text.str();
  };
  EXPECT_EQ(answers(Overlay()), answers(machine));
}

TEST_F(OverlayPlatformTest, RefusesPathsAndNamesThatAreTooLong) {
  const String name(255, u'n');
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\" + name, "x"); }), 0);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\" + name + u"n", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\" + name + u"n\\x.txt", "x"); }), 75);
  String path = u"C:";
  while (path.size() < 4094) path += u'\\' + String(123, u'a');
  EXPECT_EQ(ErrorOf([&] { Write(path + u"\\b", "x"); }), 0);
  EXPECT_EQ(ErrorOf([&] { Write(path + u"\\bc", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Overlay().Pretend(path + u"\\bc", Planned()); }), 75);
}

TEST_F(OverlayPlatformTest, KeepsWhatIsWritten) {
  Write(u"C:\\Data\\Deep\\List.ini", "[a]\r\n");
  EXPECT_TRUE(Files().FolderExists(u"C:\\Data"));
  EXPECT_TRUE(Files().FolderExists(u"c:/data/DEEP/"));
  EXPECT_EQ(Overlay().Settings().Read(u"c:\\data\\deep\\LIST.INI"), "[a]\r\n");
  EXPECT_EQ(Read(u"C:\\Data\\x\\..\\Deep. \\List.ini. "), "[a]\r\n");
  EXPECT_EQ(Overlay().Written(u"C:/Data/Deep/list.ini"), "[a]\r\n");
  EXPECT_FALSE(Files().FactsOf(u"C:\\Data\\Deep\\List.ini\\"));
  EXPECT_FALSE(Files().FactsOf(u"C:\\Data\\Deep"));
  EXPECT_FALSE(FilesBelow().FolderExists(u"C:\\Data"));
}

TEST_F(OverlayPlatformTest, GivesAWrittenFileTheTimeOfItsWriting) {
  const auto seconds = [] {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
  };
  const std::int64_t start = seconds();
  Write(u"C:\\OLD.TXT", "newer");
  const std::int64_t end = seconds();
  const std::optional<FileFacts> facts = Files().FactsOf(u"C:\\old.txt");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Old.txt") << "a replaced file keeps its spelling";
  EXPECT_EQ(facts->size, 5);
  EXPECT_GE(facts->created, start);
  EXPECT_LE(facts->created, end);
  EXPECT_EQ(facts->modified / 1'000'000'000, facts->created);
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Old.txt"}));
}

TEST_F(OverlayPlatformTest, AnOpenFileStaysWhatItWasWhenItIsReplaced) {
  Write(u"C:\\New.txt", "first");
  const std::unique_ptr<BinaryFile> open = Files().OpenForReading(u"C:\\New.txt");
  Write(u"C:\\New.txt", "the second one");
  std::string bytes(20, '\0');
  EXPECT_EQ(open->Size(), 5u);
  EXPECT_EQ(open->ReadAt(0, bytes), 5u);
  EXPECT_EQ(bytes.substr(0, 5), "first");
  EXPECT_EQ(open->ReadAt(3, std::span(bytes).first(1)), 1u);
  EXPECT_EQ(bytes[0], 's');
  EXPECT_EQ(open->ReadAt(5, bytes), 0u);
  EXPECT_EQ(open->ReadAt(99, bytes), 0u);
  EXPECT_EQ(Read(u"C:\\New.txt"), "the second one");
}

TEST_F(OverlayPlatformTest, AppendsBehindTheContentBelow) {
  const std::optional<FileFacts> below = Files().FactsOf(u"C:\\Old.txt");
  Append(u"c:\\old.TXT", " and new", false);
  Append(u"C:\\Old.txt", "er");
  EXPECT_EQ(Read(u"C:\\Old.txt"), "old and newer");
  EXPECT_EQ(FilesBelow().FactsOf(u"C:\\Old.txt")->size, 3);
  const std::optional<FileFacts> facts = Files().FactsOf(u"C:\\Old.txt");
  EXPECT_EQ(facts->created, below->created);
  EXPECT_GT(facts->modified, below->modified);
  EXPECT_EQ(facts->size, 13);
}

TEST_F(OverlayPlatformTest, CreatesAFileToAppendToOnlyWhenAsked) {
  EXPECT_EQ(ErrorOf([&] { Append(u"C:\\Log.txt", "x", false); }), 53);
  EXPECT_FALSE(Files().FileExists(u"C:\\Log.txt"));
  Append(u"C:\\Log.txt", "1");
  Append(u"C:\\LOG.TXT", "2", false);
  EXPECT_EQ(Overlay().Written(u"C:\\Log.txt"), "12");
}

TEST_F(OverlayPlatformTest, HidesADeletedFile) {
  Files().RemoveFile(u"c:\\music\\MIX.M3U", false);
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"One.mp3"}));
  EXPECT_EQ(ErrorOf([&] { Files().OpenForReading(u"C:\\Music\\Mix.m3u"); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().RemoveFile(u"C:\\Music\\Mix.m3u", true); }), 53);
  EXPECT_EQ(Overlay().Settings().Read(u"C:\\Music\\Mix.m3u"), std::nullopt);
  EXPECT_EQ(Files().FileVersion(u"C:\\Music\\Mix.m3u"), u"");
  EXPECT_TRUE(FilesBelow().FileExists(u"C:\\Music\\Mix.m3u"));

  Append(u"C:\\Music\\mix.m3u", "anew");
  EXPECT_EQ(Read(u"C:\\Music\\Mix.m3u"), "anew");
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"mix.m3u", u"One.mp3"}));
  Files().RemoveFile(u"C:\\Music\\Mix.m3u", false);
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\Mix.m3u"), std::nullopt);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayPlatformTest, AFolderMayTakeTheNameOfADeletedFile) {
  Files().RemoveFile(u"C:\\Old.txt", false);
  Files().CreateFolder(u"C:\\Old.txt");
  EXPECT_TRUE(Files().FolderExists(u"C:\\Old.txt"));
  EXPECT_FALSE(Files().FileExists(u"C:\\Old.txt"));
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt\\"}));
  EXPECT_TRUE(Names(u"C:\\Old.txt").empty());
}

TEST_F(OverlayPlatformTest, CreatesOneFolderAtATime) {
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\New\\Deep"); }), 76);
  Files().CreateFolder(u"C:\\New\\");
  Files().CreateFolder(u"c:\\new\\Deep");
  EXPECT_TRUE(Files().FolderExists(u"C:\\NEW\\deep\\"));
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\new"); }), 75);
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"New\\", u"Old.txt"}));
  EXPECT_EQ(Names(u"C:\\new"), (Paths{u"Deep\\"}));
  EXPECT_EQ(ErrorOf([&] { Files().OpenForReading(u"C:\\New\\Deep\\a.txt"); }), 53);
  EXPECT_EQ(ErrorOf([&] { Files().OpenForReading(u"C:\\New\\Deeper\\a.txt"); }), 76);
}

TEST_F(OverlayPlatformTest, ListsBothWorldsAsOne) {
  Write(u"C:\\Music\\ONE.MP3", "one more");
  Write(u"C:\\Music\\Sub\\x.txt", "x");
  Write(u"C:\\Music\\Two.m3u", "two");
  Write(u"C:\\Music\\Two.txt", "two");
  Overlay().Pretend(u"C:\\Music\\Sub\\Deep\\Planned.m3u", Planned());
  Overlay().Pretend(u"C:\\Music\\Album\\Planned.M3U", Planned());
  Overlay().Pretend(u"C:\\Music\\Planned.M3U", Planned());
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Album\\", u"Mix.m3u", u"One.mp3", u"Planned.M3U",
                                        u"Sub\\", u"Two.m3u", u"Two.txt"}));
  EXPECT_EQ(Names(u"c:/music/", {u".m3u", u".pls"}),
            (Paths{u"Album\\", u"Mix.m3u", u"Planned.M3U", u"Sub\\", u"Two.m3u"}));
  EXPECT_EQ(Names(u"C:\\Music\\Sub"), (Paths{u"Deep\\", u"x.txt"}));
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
}

TEST_F(OverlayPlatformTest, ListsALinkedFolderNoMoreThanTheMachineBelow) {
  fs::create_directory_symlink("Music", Place("C/Link"));
  Write(u"C:\\Link\\New.txt", "new");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
  EXPECT_EQ(Names(u"C:\\Link"), (Paths{u"Mix.m3u", u"New.txt", u"One.mp3"}));
}

TEST_F(OverlayPlatformTest, AFileThatIsPretendedStands) {
  Overlay().Pretend(u"C:\\Music\\Album\\planned.mp3", Planned(u"Planned.mp3"));
  const std::optional<FileFacts> facts = Files().FactsOf(u"c:/music/album/PLANNED.mp3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Planned.mp3");
  EXPECT_EQ(facts->size, 4711);
  EXPECT_EQ(facts->created, 1000);
  EXPECT_EQ(facts->modified, 2'000'000'000'000);
  EXPECT_TRUE(Files().FolderExists(u"C:\\Music\\Album"));
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Album"));
  EXPECT_EQ(Names(u"C:\\Music\\Album"), (Paths{u"Planned.mp3"}));
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\Album\\Planned.mp3"), std::nullopt);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());

  Overlay().Pretend(u"C:\\Other.mp3", Planned(u"Source.mp3"));
  EXPECT_EQ(Files().FactsOf(u"C:\\Other.mp3")->name, u"Other.mp3");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt", u"Other.mp3"}));
}

TEST_F(OverlayPlatformTest, AFileThatIsPretendedHasNoContent) {
  Overlay().Pretend(u"C:\\Old.txt", Planned());
  EXPECT_EQ(Files().FactsOf(u"C:\\Old.txt")->size, 4711);
  EXPECT_EQ(ErrorOf([&] { Files().OpenForReading(u"C:\\Old.txt"); }), 57);
  EXPECT_EQ(ErrorOf([&] { Files().OpenForAppending(u"C:\\Old.txt", true); }), 57);
  EXPECT_EQ(ErrorOf([&] { Overlay().Settings().Read(u"C:\\Old.txt"); }), 57);
  EXPECT_EQ(Files().FileVersion(u"C:\\Old.txt"), u"");
  Overlay().TakeBack(u"c:/old.txt");
  EXPECT_EQ(Read(u"C:\\Old.txt"), "old");
}

TEST_F(OverlayPlatformTest, TakesPretencesBack) {
  Write(u"C:\\Plan\\Written.txt", "written");
  Overlay().Pretend(u"C:\\Plan\\A\\a.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\A\\b.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\B\\c.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\Written.txt", Planned());
  Overlay().TakeBack(u"c:\\plan\\a\\A.MP3");
  Overlay().TakeBack(u"C:\\Plan\\Nothing.mp3");
  EXPECT_FALSE(Files().FileExists(u"C:\\Plan\\A\\a.mp3"));
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\A"));
  Overlay().TakeBack(u"C:\\Plan\\A\\b.mp3");
  EXPECT_FALSE(Files().FolderExists(u"C:\\Plan\\A"));
  EXPECT_EQ(Files().FactsOf(u"C:\\Plan\\Written.txt")->size, 4711);
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\B"));
  Overlay().TakeBackAll();
  EXPECT_FALSE(Files().FolderExists(u"C:\\Plan\\B"));
  EXPECT_EQ(Read(u"C:\\Plan\\Written.txt"), "written");
}

TEST_F(OverlayPlatformTest, WhatIsWrittenInAPretendedFolderOutlivesIt) {
  Overlay().Pretend(u"C:\\Plan\\A\\a.mp3", Planned());
  Append(u"C:\\Plan\\A\\list.m3u", "a.mp3");
  Files().CreateFolder(u"C:\\Plan\\B");
  Overlay().TakeBackAll();
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\B"));
  EXPECT_EQ(Names(u"C:\\Plan\\A"), (Paths{u"list.m3u"}));
}

TEST_F(OverlayPlatformTest, WritingAndDeletingTakeAPretenceBack) {
  Overlay().Pretend(u"C:\\Music\\One.mp3", Planned());
  Overlay().Pretend(u"C:\\Music\\Two.mp3", Planned());
  Overlay().Pretend(u"C:\\Music\\Three.mp3", Planned());
  Files().RemoveFile(u"C:\\Music\\One.mp3", false);
  Files().RemoveFile(u"C:\\Music\\Two.mp3", false);
  Write(u"C:\\Music\\Three.mp3", "three");
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Mix.m3u", u"Three.mp3"}));
  EXPECT_EQ(Read(u"C:\\Music\\Three.mp3"), "three");
  Overlay().TakeBackAll();
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Mix.m3u", u"Three.mp3"}));
}

TEST_F(OverlayPlatformTest, APretenceThatCannotStandIsRefused) {
  const auto pretend = [&](StringView path) {
    return ErrorOf([&] { Overlay().Pretend(path, Planned()); });
  };
  EXPECT_EQ(pretend(u""), 75);
  EXPECT_EQ(pretend(u"C:\\Music"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\"), 75);
  EXPECT_EQ(pretend(u"C:\\Old.txt\\a.mp3"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\a\1.mp3"), 75);
  EXPECT_EQ(pretend(u"C:\\N\1w\\a.mp3"), 75);
  EXPECT_EQ(pretend(u"D:\\a.mp3"), 76);
  EXPECT_FALSE(Files().FolderExists(u"C:\\New"));
  EXPECT_EQ(pretend(u"C:\\New\\a.mp3"), 0);
  EXPECT_EQ(pretend(u"C:\\New"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\a.mp3\\b.mp3"), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\New", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Write(u"C:\\New\\a.mp3\\b.ini", "x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { Files().CreateFolder(u"C:\\New\\A.MP3"); }), 75);
}

TEST_F(OverlayPlatformTest, TellsWrittenPathsInTheOrderOfWriting) {
  Write(u"C:/Z/last.ini", "1");
  Append(u"C:\\Old.txt", "2");
  Write(u"C:\\A.ini", "3");
  Write(u"C:\\z\\LAST.ini", "4");
  Overlay().Pretend(u"C:\\B.mp3", Planned());
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Z\\last.ini", u"C:\\Old.txt", u"C:\\A.ini"}));
  Files().RemoveFile(u"C:\\Z\\last.ini", false);
  Write(u"C:\\Z\\last.ini", "5");
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Old.txt", u"C:\\A.ini", u"C:\\Z\\last.ini"}));
  EXPECT_EQ(Overlay().Written(u"C:\\Z\\last.ini"), "5");
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\One.mp3"), std::nullopt);
  EXPECT_EQ(Overlay().Written(u"C:\\Z"), std::nullopt);
}

TEST_F(OverlayPlatformTest, RegistryShowsBelowAndKeepsWhatIsWritten) {
  norvo::Registry& registry = Overlay().Registry();
  const StringView key = u"SOFTWARE\\Norvo";
  const auto text = [](StringView value) { return std::optional<RegistryValue>(String(value)); };
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Text"), text(u"below"));
  EXPECT_TRUE(registry.Write(Hive::LocalMachine, u"software\\NORVO\\", u"TEXT", String(u"above")));
  EXPECT_TRUE(registry.Write(Hive::LocalMachine, key, u"Double", 2.5));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"text"), text(u"above"));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Double"), std::optional<RegistryValue>(2.5));
  EXPECT_EQ(registry.Read(Hive::LocalMachine, key, u"Number"),
            std::optional<RegistryValue>(std::int32_t{7}));
  EXPECT_EQ(registry.Read(Hive::CurrentUser, key, u"Text"), std::nullopt);
}

TEST_F(OverlayPlatformTest, RegistryCreatesKeysWithThoseAbove) {
  norvo::Registry& registry = Overlay().Registry();
  EXPECT_FALSE(registry.Write(Hive::CurrentUser, u"A\\B", u"x", std::int32_t{1}));
  EXPECT_FALSE(registry.KeyExists(Hive::CurrentUser, u"A\\B"));
  EXPECT_TRUE(registry.CreateKey(Hive::CurrentUser, u"A\\B\\C\\"));
  for (const StringView key : {u"A", u"a\\b", u"A\\B\\C", u"A\\B\\C\\"}) {
    EXPECT_TRUE(registry.KeyExists(Hive::CurrentUser, key)) << ToUtf8(key);
    EXPECT_FALSE(registry.KeyExists(Hive::LocalMachine, key)) << ToUtf8(key);
  }
  EXPECT_TRUE(registry.Write(Hive::CurrentUser, u"a\\B", u"x", std::int32_t{1}));
  EXPECT_TRUE(registry.CreateKey(Hive::CurrentUser, u"A\\B"));
  EXPECT_EQ(registry.Read(Hive::CurrentUser, u"A\\B", u"X"),
            std::optional<RegistryValue>(std::int32_t{1}));
  EXPECT_FALSE(registry.CreateKey(Hive::CurrentUser, u"\\A"));
  EXPECT_FALSE(registry.CreateKey(Hive::CurrentUser, u"A\\\\D"));
}

TEST_F(OverlayPlatformTest, ProductFactsFollowTheWrittenRegistry) {
  EXPECT_EQ(Overlay().Product().Folder(), u"C:\\Norvo\\");
  EXPECT_EQ(Overlay().Product().Name(), u"");
  const String key = Overlay().Product().BaseKey();
  norvo::Registry& registry = Overlay().Registry();
  registry.CreateKey(Hive::LocalMachine, key);
  registry.Write(Hive::LocalMachine, key, u"ProductFolder", String(u"C:\\Elsewhere"));
  registry.Write(Hive::LocalMachine, key, u"ProductName", String(u"Mover"));
  EXPECT_EQ(Overlay().Product().Folder(), u"C:\\Elsewhere\\");
  EXPECT_EQ(Overlay().Product().Name(), u"Mover");
}

TEST_F(OverlayPlatformTest, ShellFoldersAreCreatedHere) {
  EXPECT_FALSE(Overlay().Shell().FolderPath(5 | ShellFolders::kCreateFlag));
  EXPECT_EQ(Overlay().Shell().SpecialFolderPath(5), u"C:\\My Documents");
  EXPECT_TRUE(Files().FolderExists(u"C:\\My Documents"));
  EXPECT_FALSE(FilesBelow().FolderExists(u"C:\\My Documents"));
  EXPECT_EQ(Overlay().Shell().SpecialFolderPath(99), u"");
}

TEST_F(OverlayPlatformTest, ScansWhatItShows) {
  class Visitor final : public ScanVisitor {
   public:
    bool EnterFolder(StringView) override { return true; }
    void VisitFile(StringView folder, StringView name) override {
      found.push_back(String(folder) + u"|" + String(name));
    }
    void CannotList(StringView folder, StringView) override { found.emplace_back(folder); }
    Paths found;
  };
  Files().RemoveFile(u"C:\\Music\\Mix.m3u", false);
  Write(u"C:\\Music\\New.m3u", "x");
  Overlay().Pretend(u"C:\\Plan\\Planned.m3u", Planned());
  Visitor visitor;
  const StringView endings[] = {u".m3u"};
  Overlay().Scanner()->Scan(endings, visitor);
  EXPECT_EQ(visitor.found, (Paths{u"C:\\Music|New.m3u", u"C:\\Plan|Planned.m3u"}));
}

TEST_F(OverlayPlatformTest, MigrationListTakesAllAndKeepsNothing) {
  MigrationList& list = Overlay().Migration();
  EXPECT_TRUE(list.EnsureGroup(u"KVMediaPlayLists", u"C:\\Music\\"));
  EXPECT_TRUE(list.Add({u"C:\\Music\\One.mp3", u"GET_SHELL_FOLDER,5,a,b", u"a"}));
  EXPECT_TRUE(list.Flush());
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayPlatformTest, LeavesTheWarningsOfTheMachineBelowToWhoeverOpenedIt) {
  WriteFile(Place("C/Music/\xFF.mp3"), "odd");
  Paths warnings;
  Below().SetWarningSink([&](StringView line) { warnings.emplace_back(line); });
  Overlay().SetWarningSink([](StringView) { ADD_FAILURE() << "the overlay took the warnings"; });
  Names(u"C:\\Music");
  EXPECT_EQ(warnings.size(), 1u);
}

TEST_F(OverlayPlatformTest, ARunOverItGivesTheFilesOfARunOverTheMachine) {
  WriteMix();
  WriteFile(Place("C/Music/Deep/Other.pls"),
            "[playlist]\r\nFile1=..\\One.mp3\r\nTitle1=Ann - One\r\nNumberOfEntries=1\r\n");
  WriteFile(Place("C/Music/Deep/Web.m3u.asx"),
            "<ASX version=\"3.0\">\r\n<Entry>\r\n<Title>Two</Title>\r\n"
            "<Ref href=\"C:\\Music\\Two.mp3\"/>\r\n</Entry>\r\n</ASX>\r\n");
  ASSERT_EQ(Init().code, 0);
  const fs::path other = CopyOfMachine();
  const auto run = [](std::shared_ptr<Platform> platform) {
    const std::unique_ptr<Component> library = OpenLibrary(std::move(platform));
    const ObjectRef controller = library->Create(u"helperMan");
    controller->Call(u"GetAllPlaylists");
    Variant mode = std::int32_t{0};
    controller->Call(u"GenericQueue", Arguments(&mode, 1));
  };
  run(SharedOverlay());
  run(std::make_shared<HostedPlatform>(other));

  std::map<std::string, std::string> above;
  for (const String& path : Overlay().WrittenPaths()) {
    above[ToUtf8(path)] = Overlay().Written(path).value_or("(none)");
  }
  std::map<std::string, std::string> expected;
  for (const auto& file : fs::directory_iterator(other / "C/My Documents/Norvo Media/KVs")) {
    const std::string name = file.path().filename().string();
    if (name == "MediaList.txt") continue;
    expected["C:\\My Documents\\Norvo Media\\KVs\\" + name] = ReadFile(file.path());
  }
  EXPECT_EQ(above, expected);
  std::vector<std::string> names;
  for (const auto& [path, bytes] : expected) names.push_back(path.substr(path.rfind('\\') + 1));
  EXPECT_EQ(names, (std::vector<std::string>{"Mix.ini", "Other.ini", "Web.ini"}));
}

TEST_F(OverlayPlatformTest, TheLibraryCountsAPretendedSongAsThere) {
  WriteMix();
  ASSERT_EQ(Init().code, 0);
  Overlay().Pretend(u"C:\\Music\\Three.mp3", Planned());
  const std::unique_ptr<Component> library = OpenLibrary(SharedOverlay());
  const ObjectRef controller = library->Create(u"helperMan");
  controller->Call(u"GetAllPlaylists");
  Variant mode = std::int32_t{0};
  controller->Call(u"GenericQueue", Arguments(&mode, 1));
  const std::string mix =
      Overlay().Written(u"C:\\My Documents\\Norvo Media\\KVs\\Mix.ini").value_or("");
  EXPECT_TRUE(Holds(mix, "TotalSongs=3\r\n")) << mix;
  EXPECT_TRUE(Holds(mix, "Three.mp3")) << mix;
}

/// A shell that has the function which can create folders.
TEST(OverlayShellTest, TheShellBelowIsNeverAskedToCreate) {
  const auto below = std::make_shared<MemoryPlatform>();
  below->Shell().SetFolder(5, u"C:\\New Documents");
  OverlayPlatform overlay(below);
  EXPECT_EQ(overlay.Shell().FolderPath(5)->path, u"C:\\New Documents");
  EXPECT_FALSE(overlay.Files().FolderExists(u"C:\\New Documents"));
  const std::optional<ShellFolders::Answer> answer =
      overlay.Shell().FolderPath(5 | ShellFolders::kCreateFlag);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 0u);
  EXPECT_EQ(answer->path, u"C:\\New Documents");
  EXPECT_TRUE(overlay.Files().FolderExists(u"C:\\New Documents"));
  EXPECT_EQ(overlay.Shell().SpecialFolderPath(5), u"C:\\New Documents");
  EXPECT_EQ(overlay.Shell().SpecialFolderPath(6), u"");
  EXPECT_EQ(overlay.Shell().FolderPath(6)->status, ShellFolders::kInvalidArgumentStatus);

  EXPECT_FALSE(below->HasFolder(u"C:\\New Documents"));
  EXPECT_EQ(below->Calls(u"Shell.SpecialFolderPath"), 0u);
  const Paths trace = below->Trace();
  EXPECT_EQ(std::count(trace.begin(), trace.end(), u"Shell.FolderPath 5"), 3);
}

TEST(OverlayMessagesTest, GoToTheMachineBelowUnlessTheyAreTaken) {
  const auto below = std::make_shared<MemoryPlatform>();
  OverlayPlatform overlay(below);
  overlay.Messages().Show({}, u"first");
  EXPECT_EQ(below->Calls(u"Messages.Show"), 1u);
  class Box final : public MessageDialog {
   public:
    void Show(StringView, StringView text) override { shown = text; }
    String shown;
  } box;
  overlay.SetMessageDialog(box);
  overlay.Messages().Show({}, u"second");
  EXPECT_EQ(box.shown, u"second");
  EXPECT_EQ(below->Calls(u"Messages.Show"), 1u);
}

}  // namespace
}  // namespace norvo::host
