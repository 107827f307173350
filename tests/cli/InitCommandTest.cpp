#include "cli/ProgramFixture.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

class InitCommandTest : public ProgramTest {
 protected:
  std::string RegistryText() const {
    const std::string bytes = ReadFile(Place("registry.reg"));
    EXPECT_GT(bytes.size(), 2u);
    return ToUtf8(DecodeUtf16(bytes.substr(2), false));
  }
};

constexpr const char* kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";

TEST_F(InitCommandTest, WritesAllSettingsOfABareMachine) {
  const Outcome outcome = Init();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  const std::string registry = RegistryText();
  EXPECT_TRUE(Holds(registry, "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS]"));
  EXPECT_TRUE(Holds(registry, "\"mode\"=dword:00000000"));
  EXPECT_TRUE(Holds(registry, "\"SubGroupRootName\"=\"C:\\\\My Documents\\\\Norvo Media\\\\\""));
  EXPECT_TRUE(Holds(registry,
                    "[HKEY_LOCAL_MACHINE\\C:\\My Documents\\Norvo Media\\KVs\\KVMediaPlayLists]"));
  EXPECT_TRUE(fs::is_directory(Place("C/Norvo")));
  const std::string names = ReadFile(Place("C/My Documents/Norvo Media/SubNames.txt"));
  EXPECT_EQ(names,
            "[PlayListStrings]\r\nSzID001=Music\r\nSzID002=Music\r\nSzID003=Music\r\n"
            "SzID004=Music\r\nszID005=PlayLists\r\nszID006=\r\n");
  EXPECT_TRUE(Holds(outcome.out, "Written:"));
  EXPECT_FALSE(Holds(outcome.out, "Already there:"));
}

TEST_F(InitCommandTest, ASecondRunChangesNoByte) {
  Init();
  const auto before = Snapshot(Machine());
  const Outcome outcome = Init();
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(Snapshot(Machine()), before);
  EXPECT_FALSE(Holds(outcome.out, "Written:"));
  EXPECT_TRUE(Holds(outcome.out, "Already there:"));
}

TEST_F(InitCommandTest, TakesRoleAndGroupRoot) {
  fs::create_directories(Place("D"));
  const Outcome outcome = RunProgram(
      {"init", "--machine", Machine(), "--role", "destination", "--group-root", "D:/Media/Norvo"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(RegistryText(), "\"mode\"=dword:00000001"));
  EXPECT_TRUE(Holds(RegistryText(), "\"SubGroupRootName\"=\"D:\\\\Media\\\\Norvo\\\\\""));
  EXPECT_TRUE(fs::exists(Place("D/Media/Norvo/SubNames.txt")));
}

TEST_F(InitCommandTest, AGroupRootOffDriveCLeavesDriveCAsItWas) {
  WriteMix();
  fs::create_directories(Place("Z"));
  const auto before = Snapshot(Place("C"));
  const Outcome init =
      RunProgram({"init", "--machine", Machine(), "--group-root", "Z:\\Norvo Media\\"});
  EXPECT_EQ(init.code, 0) << init.err;
  EXPECT_TRUE(Holds(RegistryText(), "\"ProductFolder\"=\"Z:\\\\Norvo\\\\\"")) << init.out;
  EXPECT_EQ(RunProgram({"collect", "--machine", Machine(), "--log"}).code, 1);  // a song is missing
  EXPECT_TRUE(fs::exists(Place("Z/Norvo Media/KVs/MediaList.txt")));
  EXPECT_TRUE(fs::exists(Place("Z/Norvo/VBLog.txt")));
  EXPECT_EQ(Snapshot(Place("C")), before);
}

TEST_F(InitCommandTest, AProductFolderThatIsNamedStays) {
  fs::create_directories(Place("Z"));
  WriteFile(Place("registry.reg"), std::string(kHeader) +
                                       "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration]\r\n"
                                       "\"ProductFolder\"=\"C:\\\\Logs\"\r\n");
  const Outcome outcome = RunProgram({"init", "--machine", Machine(), "--group-root", "Z:\\Media"});
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(ReadFile(Place("registry.reg")), "\"ProductFolder\"=\"C:\\\\Logs\""));
  EXPECT_TRUE(fs::is_directory(Place("C/Logs")));
  EXPECT_FALSE(fs::exists(Place("Z/Norvo")));
}

TEST_F(InitCommandTest, AProductFolderThatIsNoTextIsToldAndNothingIsMadeOnDriveC) {
  fs::create_directories(Place("Z"));
  WriteFile(Place("registry.reg"), std::string(kHeader) +
                                       "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration]\r\n"
                                       "\"ProductFolder\"=dword:00000001\r\n");
  const auto before = Snapshot(Place("C"));
  const Outcome outcome = RunProgram({"init", "--machine", Machine(), "--group-root", "Z:\\Media"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "ProductFolder is no text")) << outcome.err;
  EXPECT_EQ(Snapshot(Place("C")), before);
}

TEST_F(InitCommandTest, KeepsWhatIsThereAndSaysThatAWishWasNotFulfilled) {
  Init();
  const auto before = Snapshot(Machine());
  const Outcome outcome = RunProgram(
      {"init", "--machine", Machine(), "--role", "destination", "--group-root", "C:\\Elsewhere"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(Snapshot(Machine()), before);
  EXPECT_TRUE(Holds(outcome.err, "role stays 0")) << outcome.err;
  EXPECT_TRUE(Holds(outcome.err, "group root stays C:\\My Documents")) << outcome.err;
}

TEST_F(InitCommandTest, AValueOfTheCurrentUserCountsAsThere) {
  WriteFile(
      Place("registry.reg"),
      std::string(kHeader) +
          "[HKEY_CURRENT_USER\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n\"mode\"=dword:00000001\r\n");
  const Outcome outcome = Init();
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(Holds(outcome.out, "Already there:  registry value HKEY_CURRENT_USER"));
  EXPECT_FALSE(Holds(ReadFile(Place("registry.reg")), "dword:00000000"));
}

TEST_F(InitCommandTest, AValueThatTheUsersKeyHidesIsRepeatedThere) {
  WriteFile(
      Place("registry.reg"),
      std::string(kHeader) +
          "[HKEY_CURRENT_USER\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n\"other\"=\"x\"\r\n\r\n"
          "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n\"mode\"=dword:00000001\r\n");
  EXPECT_EQ(Init().code, 0);
  const std::string registry = ReadFile(Place("registry.reg"));
  EXPECT_FALSE(Holds(registry, "\"mode\"=dword:00000000"));
  EXPECT_EQ(RunProgram({"scan", "--machine", Machine()}).code, 0);
}

TEST_F(InitCommandTest, AnExistingSubNamesFileStaysUntouched) {
  const fs::path file = Place("C/My Documents/Norvo Media/SubNames.txt");
  WriteFile(file, "mine");
  EXPECT_EQ(Init().code, 0);
  EXPECT_EQ(ReadFile(file), "mine");
}

TEST_F(InitCommandTest, AValueOfTheWrongTypeIsLeftAndTold) {
  WriteFile(Place("registry.reg"),
            std::string(kHeader) +
                "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n\"mode\"=\"0\"\r\n");
  const Outcome outcome = Init();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, "mode is no number")) << outcome.err;
  EXPECT_TRUE(Holds(ReadFile(Place("registry.reg")), "\"mode\"=\"0\""));
}

TEST_F(InitCommandTest, AGroupRootWithoutAPlaceIsRefusedBeforeAnythingIsWritten) {
  const auto before = Snapshot(Machine());
  for (const std::string root : {"Media", "\\Media", "C:", "Q:\\Media", "\xFF:\\Media"}) {
    const Outcome outcome = RunProgram({"init", "--machine", Machine(), "--group-root", root});
    EXPECT_EQ(outcome.code, 2) << root;
    EXPECT_TRUE(Holds(outcome.err, "--group-root")) << outcome.err;
  }
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(InitCommandTest, ReportsAsADocument) {
  const auto written = RunProgram({"init", "--machine", Machine(), "--json"}).Document();
  EXPECT_EQ(written.at("command"), "init");
  EXPECT_EQ(written.at("written").size(), 6u);
  EXPECT_EQ(written.at("alreadyThere").size(), 0u);
  const auto there = RunProgram({"init", "--machine", Machine(), "--json"}).Document();
  EXPECT_EQ(there.at("written").size(), 0u);
  EXPECT_EQ(there.at("alreadyThere").size(), 6u);
  EXPECT_EQ(there.at("exitCode"), 0);
}

TEST_F(InitCommandTest, QuietSaysNothing) {
  const Outcome outcome = RunProgram({"init", "--machine", Machine(), "--quiet"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out + outcome.err, "");
}

}  // namespace
}  // namespace norvo::cli
