#include <algorithm>
#include <functional>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "controller/HelperManFixture.h"
#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

using Arm = std::function<void(CallLog&, std::size_t)>;

/// How the k-th call fails.
struct Fault {
  const char* name;
  Arm arm;
};

const std::vector<Fault>& Faults() {
  static const std::vector<Fault> faults = {
      {"one device error", [](CallLog& calls, std::size_t k) { calls.FailAt(k, 57); }},
      {"one full disk", [](CallLog& calls, std::size_t k) { calls.FailAt(k, 61); }},
      {"device errors from there on", [](CallLog& calls, std::size_t k) { calls.FailFrom(k, 57); }},
      {"no memory", [](CallLog& calls, std::size_t k) { calls.RunOutOfMemoryAt(k); }},
  };
  return faults;
}

/// A machine with the sample playlists, a log file, and a library on it.
struct Machine {
  Machine() {
    platform->ConfigureProduct();
    AddSamplePlaylists(*platform);
    library = OpenLibrary(platform);
    library->SetLogMode(3);
  }

  void Reopen() {
    platform->Log().StopFailing();
    library = OpenLibrary(platform);
  }

  /// Scans and converts with a new controller.
  std::map<String, std::string> Collect() {
    const ObjectRef controller = library->Create(u"helperMan");
    EXPECT_TRUE(GetAllPlaylists(controller));
    EXPECT_TRUE(GenericQueue(controller, 0));
    return GenericFiles(*platform);
  }

  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::unique_ptr<Component> library;
};

std::string At(const Fault& fault, std::size_t k) {
  return std::string(fault.name) + " at call " + std::to_string(k);
}

/// Runs `work` with the first, second, third ... call failing, until none fails any more.
void ForEachFailure(const std::function<void(const Fault&, std::size_t k, Machine&)>& work) {
  constexpr std::size_t kEnough = 5000;
  for (const Fault& fault : Faults()) {
    bool failed = true;
    std::size_t k = 0;
    while (failed && k < kEnough) {
      Machine machine;
      work(fault, ++k, machine);
      failed = machine.platform->Log().HasFailed();
    }
    EXPECT_GT(k, 10u) << fault.name;
    EXPECT_LT(k, kEnough) << fault.name;
  }
}

/// A generic file is written whole: what stands begins and ends as one.
void ExpectWholeFiles(const Machine& machine, const std::string& where) {
  for (const auto& [path, bytes] : GenericFiles(*machine.platform)) {
    EXPECT_TRUE(bytes.starts_with("[Global Properties]\r\n")) << where << " " << Utf8(path);
    EXPECT_TRUE(bytes.ends_with("\r\n\r\n")) << where << " " << Utf8(path);
  }
}

TEST(FailingMachineTest, NothingEscapesFromTheScanAndALaterRunMakesTheSameFiles) {
  Machine sound;
  const auto expected = sound.Collect();
  ForEachFailure([&](const Fault& fault, std::size_t k, Machine& machine) {
    const std::string where = At(fault, k);
    const ObjectRef controller = machine.library->Create(u"helperMan");
    fault.arm(machine.platform->Log(), k);
    EXPECT_NO_THROW(GetAllPlaylists(controller)) << where;
    machine.platform->Log().StopFailing();
    EXPECT_NO_THROW(GetPLSList(controller)) << where;
    machine.Reopen();
    EXPECT_EQ(machine.Collect(), expected) << where;
  });
}

TEST(FailingMachineTest, ASoundRunOfTheSameControllerAfterAFailedScanFindsEverything) {
  Machine sound;
  const auto expected = sound.Collect();
  ForEachFailure([&](const Fault& fault, std::size_t k, Machine& machine) {
    const ObjectRef controller = machine.library->Create(u"helperMan");
    fault.arm(machine.platform->Log(), k);
    EXPECT_NO_THROW(GetAllPlaylists(controller)) << At(fault, k);
    machine.platform->Log().StopFailing();
    EXPECT_TRUE(GetAllPlaylists(controller)) << At(fault, k);
    EXPECT_TRUE(GenericQueue(controller, 0)) << At(fault, k);
    EXPECT_EQ(GenericFiles(*machine.platform), expected) << At(fault, k);
  });
}

TEST(FailingMachineTest, NothingEscapesFromTheQueueAndALaterRunMakesTheSameFiles) {
  Machine sound;
  const auto expected = sound.Collect();
  ForEachFailure([&](const Fault& fault, std::size_t k, Machine& machine) {
    const std::string where = At(fault, k);
    const ObjectRef controller = machine.library->Create(u"helperMan");
    ASSERT_TRUE(GetAllPlaylists(controller));
    fault.arm(machine.platform->Log(), k);
    EXPECT_NO_THROW(GenericQueue(controller, 0)) << where;
    ExpectWholeFiles(machine, where);
    machine.Reopen();
    EXPECT_EQ(machine.Collect(), expected) << where;
  });
}

TEST(FailingMachineTest, NothingEscapesFromTheOtherOperations) {
  const std::pair<StringView, StringView> calls[] = {
      {u"GetPLSList", u""},
      {u"ParseM3UHeader", u"C:\\Music\\Road Trip.m3u"},
      {u"ParsePLSHeader", u"C:\\Music\\Amp.pls"},
      {u"UpdateTotalFileSize", u""},
  };
  for (const auto& [member, path] : calls) {
    for (const Fault& fault : Faults()) {
      bool failed = true;
      for (std::size_t k = 1; failed; ++k) {
        Machine machine;
        const ObjectRef controller = machine.library->Create(u"helperMan");
        ASSERT_TRUE(GetAllPlaylists(controller));
        fault.arm(machine.platform->Log(), k);
        if (path.empty()) {
          EXPECT_NO_THROW(controller->Call(member)) << Utf8(member) << At(fault, k);
        } else {
          EXPECT_NO_THROW(CallWith(controller, member, String(path)))
              << Utf8(member) << At(fault, k);
        }
        failed = machine.platform->Log().HasFailed();
      }
    }
  }
}

TEST(FailingMachineTest, AControllerIsCreatedOnAMachineThatFails) {
  ForEachFailure([](const Fault& fault, std::size_t k, Machine& machine) {
    fault.arm(machine.platform->Log(), k);
    ObjectRef controller;
    EXPECT_NO_THROW(controller = machine.library->Create(u"helperMan")) << At(fault, k);
    ASSERT_NE(controller, nullptr);
    EXPECT_NO_THROW(GetAllPlaylists(controller)) << At(fault, k);
    EXPECT_NO_THROW(GenericQueue(controller, 0)) << At(fault, k);
    ExpectWholeFiles(machine, At(fault, k));
  });
}

/// What a restoring run tells its host.
class RestoreFollower final : public Observer {
 public:
  void OnLogLine(StringView line) override { told.push_back("log " + Utf8(line)); }
  void OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome, std::size_t kept,
                     StringView) override {
    told.push_back(Utf8(path) + " " + std::to_string(type) + " " + std::to_string(kept));
  }
  void OnNativeFileEnd(StringView path, bool whole) override {
    told.push_back((whole ? "whole " : "torn ") + Utf8(path));
  }
  Lines told;
};

/// A new PC with generic files in its documents, two players, and a log file.
struct NewMachine {
  NewMachine() {
    platform->ConfigureProduct();
    const std::string entries =
        "TotalSongs=2\r\n\r\n[Entry 1 Properties]\r\nArtist=a\r\nFileName=One.mp3\r\n"
        "HasExtendedInfo=True\r\nSourceURL=C:\\Music\\One.mp3\r\nURLType=0\r\n\r\n"
        "[Entry 2 Properties]\r\nSourceURL=http://host/\r\nURLType=9\r\n\r\n";
    for (const std::string type : {"1", "4"}) {
      const std::string name = "List" + type;
      platform->AddFile(u"C:\\My Documents\\" + String(name.begin(), name.end()) + u".ini",
                        "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + name +
                            "\r\nPlaylistType=" + type + "\r\nOriginalFileName=" + name + ".x\r\n" +
                            entries);
    }
    platform->AddFile(u"C:\\My Documents\\other.ini", "[Other]\r\n");
    platform->AddFile(u"C:\\Winamp\\Winamp.ini", kWinampSettings);
    platform->SetRegistry(Hive::ClassesRoot, u"Winamp.File\\shell\\open\\command", u"",
                          String(u"C:\\Winamp\\Winamp.exe"));
    platform->SetRegistry(Hive::LocalMachine,
                          u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MMJB.EXE",
                          u"Path", String(u"C:\\MMJB"));
    platform->AddFile(u"C:\\MMJB\\mmjb.exe", "x");
    generic = GenericFiles(*platform);
    Reopen();
  }

  void Reopen() {
    platform->Log().StopFailing();
    library = OpenLibrary(platform);
    library->SetLogMode(3);
    library->SetObserver(&follower);
    follower.told.clear();
    controller = library->Create(u"helperMan");
  }

  /// Content of all native playlists by path.
  std::map<String, std::string> NativeFiles() {
    std::map<String, std::string> files;
    for (const String& path : platform->Files().AllFiles()) {
      if (platform->Files().HasFile(path) && path.starts_with(kGroupRoot) &&
          !path.ends_with(u".txt")) {
        files[path] = platform->Bytes(path);
      }
    }
    return files;
  }

  static constexpr const char* kWinampSettings = "[Winamp]\r\nvolume=90\r\n";
  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::map<String, std::string> generic;
  RestoreFollower follower;
  std::unique_ptr<Component> library;
  ObjectRef controller;
};

TEST(FailingMachineTest, NothingEscapesFromTheRestoringAndWhatIsLeftOutIsTold) {
  NewMachine sound;
  ASSERT_TRUE(GenericQueue(sound.controller, 1));
  const auto expected = sound.NativeFiles();
  ASSERT_EQ(expected.size(), 8u);
  for (const Fault& fault : Faults()) {
    bool failed = true;
    std::size_t k = 0;
    while (failed && k < 5000) {
      NewMachine machine;
      const std::string where = At(fault, ++k);
      fault.arm(machine.platform->Log(), k);
      EXPECT_NO_THROW(GenericQueue(machine.controller, 1)) << where;
      failed = machine.platform->Log().HasFailed();
      const bool complete = machine.NativeFiles() == expected;
      EXPECT_TRUE(complete || machine.follower.told != sound.follower.told) << where;
      EXPECT_TRUE(failed || complete) << where;
      auto untouched = GenericFiles(*machine.platform);
      const std::string winamp = untouched[u"C:\\Winamp\\Winamp.ini"];
      EXPECT_TRUE(winamp.starts_with(NewMachine::kWinampSettings)) << where;
      untouched[u"C:\\Winamp\\Winamp.ini"] = NewMachine::kWinampSettings;
      EXPECT_EQ(untouched, machine.generic) << where;

      machine.Reopen();
      const auto before = machine.NativeFiles();
      EXPECT_TRUE(GenericQueue(machine.controller, 1)) << where;
      const auto after = machine.NativeFiles();
      EXPECT_EQ(after.size(), before.size() + expected.size()) << where;
      for (const auto& [path, bytes] : before) EXPECT_EQ(after.at(path), bytes) << where;
    }
    EXPECT_GT(k, 50u) << fault.name;
    EXPECT_LT(k, 5000u) << fault.name;
  }
}

struct Reading {
  std::int32_t type;
  const char16_t* path;
};

std::vector<String> SourcesOf(const ObjectRef& playlist) {
  std::vector<String> sources;
  const ObjectRef entries = ToObject(playlist->Get(u"PlayListEntries"));
  for (std::int32_t i = 1; i <= ToInt32(entries->Get(u"TotalSongs")); ++i) {
    sources.push_back(ToText(ToObject(CallWith(entries, u"Item", i))->Get(u"Entry_SourceURL")));
  }
  return sources;
}

class FailingReadingTest : public ::testing::TestWithParam<Reading> {
 protected:
  static ObjectRef NewPlayList(Machine& machine) {
    const ObjectRef playlist = machine.library->Create(u"PlayList");
    playlist->Let(u"PlayListType", GetParam().type);
    return playlist;
  }
  static bool Read(const ObjectRef& playlist) {
    return ToBoolean(CallWith(playlist, u"ReadPlayList", String(GetParam().path)));
  }
};

TEST_P(FailingReadingTest, AReadingGivesNoEntryThatASoundOneDoesNotGive) {
  Machine sound;
  const ObjectRef whole = NewPlayList(sound);
  ASSERT_TRUE(Read(whole));
  const std::vector<String> sources = SourcesOf(whole);
  ASSERT_FALSE(sources.empty());
  ForEachFailure([&](const Fault& fault, std::size_t k, Machine& machine) {
    const std::string where = At(fault, k);
    const ObjectRef playlist = NewPlayList(machine);
    fault.arm(machine.platform->Log(), k);
    try {
      Read(playlist);
    } catch (const RunTimeError&) {
      // Only what fails between finding the file and opening it may reach the caller.
      EXPECT_TRUE(SourcesOf(playlist).empty()) << where;
    } catch (const std::bad_alloc&) {
      EXPECT_TRUE(SourcesOf(playlist).empty()) << where;
    }
    const std::vector<String> kept = SourcesOf(playlist);
    EXPECT_LE(kept.size(), sources.size()) << where;
    std::size_t from = 0;  // a part of the sound result, in its order
    for (const String& source : kept) {
      const auto found =
          std::find(sources.begin() + static_cast<std::ptrdiff_t>(from), sources.end(), source);
      ASSERT_NE(found, sources.end()) << where << " " << Utf8(source);
      from = static_cast<std::size_t>(found - sources.begin()) + 1;
    }
    machine.Reopen();
    const ObjectRef again = NewPlayList(machine);
    EXPECT_TRUE(Read(again)) << where;
    EXPECT_EQ(Utf8(SourcesOf(again)), Utf8(sources)) << where;
  });
}

INSTANTIATE_TEST_SUITE_P(
    EachType, FailingReadingTest,
    ::testing::Values(Reading{1, u"C:\\Music\\Best.m3u.asx"}, Reading{2, u"C:\\Music\\Window.m3u"},
                      Reading{3, u"C:\\Music\\Road Trip.m3u"}, Reading{4, u"C:\\Music\\Amp.pls"},
                      Reading{5, u"C:\\Music\\Sonic.pls"}, Reading{6, u"C:\\Music\\Jukebox.m3u"}),
    [](const ::testing::TestParamInfo<Reading>& reading) {
      return "Type" + std::to_string(reading.param.type);
    });

}  // namespace
}  // namespace norvo
