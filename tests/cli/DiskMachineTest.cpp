#include <nlohmann/json.hpp>

#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

/// The commands on a mounted disk, which is drive C.
class DiskMachineTest : public ProgramTest {
 protected:
  void SetUp() override {
    fs::create_directories(On("WINDOWS"));
    fs::create_directories(On("Users/Ann/Documents"));
    WriteFile(On("Music/One.mp3"), std::string(1000, '\xFF'));
    WriteFile(On("Music/Mix.m3u"), "#EXTM3U\r\n#EXTINF:61,Ann - One\r\nC:\\Music\\One.mp3\r\n");
  }
  fs::path On(const std::string& path) const { return Place(path); }
  Outcome Run(const std::string& command, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {command, "--machine", Machine()});
    return RunProgram(more);
  }
  std::string Taken() const { return "C: = " + Machine() + " (WINDOWS found)\n"; }
};

TEST_F(DiskMachineTest, EveryCommandTakesOneAndTellsIt) {
  EXPECT_EQ(Run("init").err, Taken());
  EXPECT_TRUE(fs::exists(On("Norvo/registry.reg")));
  const fs::path media = On("Users/Ann/Documents/Norvo Media");
  EXPECT_TRUE(fs::is_directory(media));
  EXPECT_EQ(Run("scan").err, Taken());
  const Outcome collected = Run("collect");
  EXPECT_EQ(collected.code, 0) << collected.err;
  EXPECT_TRUE(fs::exists(media / "KVs/Mix.ini"));
  const Outcome restored = Run("restore");
  EXPECT_EQ(restored.code, 0) << restored.err;
  EXPECT_TRUE(fs::exists(media / "PlayLists/WinAmp/Mix.m3u"));
  const Outcome shown = Run("show", {R"(C:\Music\Mix.m3u)"});
  EXPECT_EQ(shown.code, 0) << shown.err;
  EXPECT_EQ(shown.err, Taken());
  const Outcome verified = Run("verify", {On("Music/Mix.m3u").string()});
  EXPECT_EQ(verified.code, 0) << verified.err;
  EXPECT_TRUE(Holds(verified.out, "C:\\Music\\Mix.m3u: 1 found")) << verified.out;
  EXPECT_FALSE(fs::exists(On("C")));
  EXPECT_FALSE(fs::exists(On("registry.reg")));
}

TEST_F(DiskMachineTest, ALinkOutOfItIsToldAndMakesNothingIncomplete) {
  fs::create_directory_symlink("/Users", On("Documents and Settings"));
  const std::string told =
      "Warning: C:\\Documents and Settings: this link leads out of the disk, or nowhere; no such "
      "link of this disk is followed, and what it led to was not searched\n";
  const Outcome bare = Run("scan");
  EXPECT_EQ(bare.code, 0);
  EXPECT_EQ(bare.err, Taken() + told +
                          "The disk has no settings of this program, so nothing was written to "
                          "it; init writes them.\n");
  Run("init");
  for (const char* const command : {"scan", "collect"}) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.code, 0) << command;
    EXPECT_EQ(outcome.err, Taken() + told) << command;
  }
}

TEST_F(DiskMachineTest, OfALinkOutOfItThatAListLeadsThroughNothingCounts) {
  fs::create_directory_symlink("/Users", On("Documents and Settings"));
  WriteFile(On("Music/Far.m3u"), "C:\\Documents and Settings\\One.mp3\r\n");
  Run("init");
  const Outcome outcome = Run("collect");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err,
                    "Warning: C:\\Documents and Settings\\One.mp3: a link on the way "
                    "there leads out of the disk, or nowhere; no such link of this disk is "
                    "followed, and what is reached only by it counts as not there\n"))
      << outcome.err;
}

TEST_F(DiskMachineTest, CollectWithInitWritesTheSettingsThere) {
  EXPECT_EQ(Run("collect", {"--init"}).code, 0);
  EXPECT_TRUE(fs::exists(On("Users/Ann/Documents/Norvo Media/KVs/Mix.ini")));
}

TEST_F(DiskMachineTest, QuietTellsNothing) {
  Run("init");
  EXPECT_EQ(Run("scan", {"--quiet"}).err, "");
}

TEST_F(DiskMachineTest, ReadingChangesNothing) {
  const auto before = Snapshot(Root());
  EXPECT_EQ(Run("show", {R"(C:\Music\Mix.m3u)"}).code, 0);
  EXPECT_EQ(Run("verify", {R"(C:\Music\Mix.m3u)"}).code, 0);
  const Outcome scanned = Run("scan");
  EXPECT_EQ(scanned.code, 0) << scanned.err;
  EXPECT_TRUE(Holds(scanned.out, "C:\\Music\\Mix.m3u\nPlaylists found: 1\n")) << scanned.out;
  EXPECT_EQ(scanned.err, Taken() +
                             "The disk has no settings of this program, so nothing was written to "
                             "it; init writes them.\n");
  EXPECT_FALSE(nlohmann::json::parse(Run("scan", {"--json"}).out).contains("listFile"));
  EXPECT_EQ(Snapshot(Root()), before);
}

TEST_F(DiskMachineTest, OnlyWhereDocumentsMatterItIsAskedWhose) {
  fs::create_directories(On("Users/Bob/Documents"));
  const std::string question = "Whose are meant? Say it with --user NAME.";
  for (const std::string command : {"init", "restore"}) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(Holds(outcome.err, question)) << outcome.err;
  }
  EXPECT_TRUE(Holds(Run("collect", {"--init"}).err, question));
  EXPECT_EQ(Run("show", {R"(C:\Music\Mix.m3u)"}).code, 0);
  EXPECT_EQ(Run("verify", {R"(C:\Music\Mix.m3u)"}).code, 0);
  EXPECT_EQ(Run("init", {"--user", "Bob"}).code, 0);
  EXPECT_TRUE(fs::is_directory(On("Users/Bob/Documents/Norvo Media")));
  EXPECT_EQ(Run("collect").code, 0);
  EXPECT_EQ(Run("restore").code, 0);
}

TEST_F(DiskMachineTest, WithAGroupRootOfItsOwnNobodyIsAsked) {
  fs::create_directories(On("Users/Bob/Documents"));
  EXPECT_EQ(Run("init", {"--group-root", R"(C:\Media)"}).code, 0);
  EXPECT_TRUE(fs::is_directory(On("Media")));
}

TEST_F(DiskMachineTest, AFileAndAnEmptyFolderAreNoMachine) {
  WriteFile(Root() / "file", "x");
  fs::create_directories(Root() / "empty");
  for (const char* const name : {"file", "empty", "absent"}) {
    const std::string folder = (Root() / name).string();
    const Outcome outcome = RunProgram({"init", "--machine", folder});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(Holds(outcome.err, folder)) << outcome.err;
    EXPECT_TRUE(Holds(outcome.err, "or the folder where a disk is mounted.")) << outcome.err;
  }
}

}  // namespace
}  // namespace norvo::cli
