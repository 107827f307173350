#include <array>
#include <streambuf>

#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

using UsageTest = ProgramTest;

TEST_F(UsageTest, WrongUsageEndsWithTwoAndSaysSoOnStandardError) {
  const std::vector<std::vector<std::string>> lines = {
      {},
      {"conquer"},
      {"scan"},
      {"show"},
      {"scan", "--machine"},
      {"scan", "--machine", Machine(), "--frobnicate"},
      {"scan", "--machine", Machine(), "surplus"},
      {"init", "--machine", Machine(), "--role", "bystander"},
      {"show", "--machine", Machine(), "C:\\x.m3u", "--type", "7"},
  };
  for (const auto& words : lines) {
    const Outcome outcome = RunProgram(words);
    EXPECT_EQ(outcome.code, 2) << ::testing::PrintToString(words);
    EXPECT_TRUE(outcome.out.empty()) << outcome.out;
    EXPECT_TRUE(Holds(outcome.err, "--help")) << outcome.err;
  }
}

/// What a wrong line is told, without the hint at the help.
std::string Complaint(const std::vector<std::string>& words) {
  const Outcome outcome = RunProgram(words);
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  const std::string hint = "\nRun norvo-playlists --help, or norvo-playlists COMMAND --help.\n";
  EXPECT_TRUE(outcome.err.ends_with(hint)) << outcome.err;
  return outcome.err.substr(0, outcome.err.size() - std::min(outcome.err.size(), hint.size()));
}

TEST_F(UsageTest, AnUnknownCommandIsNamedWithTheOneThatItResembles) {
  const std::string start = "norvo-playlists: ";
  EXPECT_EQ(Complaint({"conquer"}), start + "conquer is no command.");
  EXPECT_EQ(Complaint({"migrat", "--from", "x"}),
            start + "migrat is no command. Did you mean migrate?");
  EXPECT_EQ(Complaint({"Scan"}), start + "Scan is no command. Did you mean scan?");
  EXPECT_EQ(Complaint({"colect"}), start + "colect is no command. Did you mean collect?");
}

TEST_F(UsageTest, AnUnknownOptionIsNamedWithTheOneThatItResembles) {
  const std::string start = "norvo-playlists: ";
  EXPECT_EQ(Complaint({"scan", "--machin", Machine()}),
            start + "--machin is no option of scan. Did you mean --machine?");
  EXPECT_EQ(Complaint({"scan", "--machne=" + Machine()}),
            start + "--machne is no option of scan. Did you mean --machine?");
  EXPECT_EQ(Complaint({"migrate", "--from", "x", "--to", "y", "--dryrun"}),
            start + "--dryrun is no option of migrate. Did you mean --dry-run?");
  EXPECT_EQ(Complaint({"scan", "--machine", Machine(), "--frobnicate"}),
            start + "--frobnicate is no option of scan.");
  EXPECT_EQ(Complaint({"--versoin"}), start + "--versoin is no option. Did you mean --version?");
}

TEST_F(UsageTest, AnOptionBeforeItsCommandIsToldItsPlace) {
  const std::string expected =
      "norvo-playlists: --machine stands before the command. Write it behind.";
  EXPECT_EQ(Complaint({"--machine", Machine(), "scan"}), expected);
  EXPECT_EQ(Complaint({"--machine", Machine()}), expected);
}

TEST_F(UsageTest, WhatIsMissingIsToldWhereNoWordIsUnknown) {
  EXPECT_EQ(Complaint({"scan"}), "norvo-playlists: --machine is required");
  EXPECT_EQ(Complaint({"migrate", "old", "new"}), "norvo-playlists: --from is required");
}

TEST_F(UsageTest, EveryCommandHasHelpWithExamples) {
  for (const std::string command : {"init", "scan", "collect", "show"}) {
    const Outcome outcome = RunProgram({command, "--help"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(Holds(outcome.out, "Examples:\n  norvo-playlists " + command)) << outcome.out;
    EXPECT_TRUE(outcome.err.empty()) << outcome.err;
  }
  EXPECT_TRUE(Holds(RunProgram({"--help"}).out, "Examples:"));
}

TEST_F(UsageTest, TellsItsVersion) {
  const Outcome outcome = RunProgram({"--version"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out.rfind("norvo-playlists ", 0), 0u) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with(")\n")) << outcome.out;
  EXPECT_EQ(RunProgram({"-V"}).out, outcome.out);
}

// Alone it is told in a way of its own.
TEST_F(UsageTest, TellsTheSameVersionBesideOtherWords) {
  const Outcome alone = RunProgram({"--version"});
  const Outcome beside = RunProgram({"--version", "scan"});
  EXPECT_EQ(beside.code, alone.code);
  EXPECT_EQ(beside.out, alone.out);
  EXPECT_EQ(beside.err, alone.err);
  EXPECT_EQ(RunProgram({"-V", "scan"}).out, alone.out);
}

TEST_F(UsageTest, UnusableMachineEndsWithTwoAndNamesTheFolder) {
  fs::create_directories(Root() / "empty");
  const std::array<std::string, 2> folders = {(Root() / "empty").string(),
                                              (Root() / "absent").string()};
  for (const std::string& folder : folders) {
    for (const std::string command : {"init", "scan", "collect"}) {
      const Outcome outcome = RunProgram({command, "--machine", folder});
      EXPECT_EQ(outcome.code, 2);
      EXPECT_TRUE(Holds(outcome.err, folder)) << outcome.err;
      EXPECT_TRUE(Holds(outcome.err, "machine.ini")) << outcome.err;
      EXPECT_TRUE(outcome.out.empty());
    }
  }
  EXPECT_TRUE(fs::is_empty(Root() / "empty"));
}

TEST_F(UsageTest, AFailureIsADocumentToo) {
  const Outcome outcome = RunProgram({"scan", "--machine", (Root() / "absent").string(), "--json"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.Document().at("exitCode"), 2);
  EXPECT_TRUE(Holds(outcome.Document().at("error"), "absent"));
}

TEST_F(UsageTest, MachineWithoutSettingsNamesInit) {
  WriteMix();
  for (const std::string command : {"scan", "collect"}) {
    const Outcome outcome = RunProgram({command, "--machine", Machine()});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(Holds(outcome.err, "norvo-playlists init")) << outcome.err;
    EXPECT_TRUE(Holds(outcome.err, "SubGroupRootName")) << outcome.err;
  }
  EXPECT_FALSE(fs::exists(Place("registry.reg")));
}

TEST_F(UsageTest, ARoleThatTakesNoPartIsRefused) {
  WriteFile(Place("registry.reg"),
            "Windows Registry Editor Version 5.00\r\n\r\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS]\r\n\"mode\"=dword:00000003\r\n");
  EXPECT_TRUE(Init().code == 0);
  const Outcome outcome = RunProgram({"scan", "--machine", Machine()});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(Holds(outcome.err, "mode")) << outcome.err;
}

TEST_F(UsageTest, ReportThatCannotBeWrittenEndsWithOne) {
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(cli::Run({"init", "--machine", Machine()}, out, err), 1);
  EXPECT_TRUE(Holds(err.str(), "Standard output")) << err.str();
}

TEST_F(UsageTest, StreamsThatThrowEndWithTwo) {
  class FullBuffer : public std::streambuf {};
  FullBuffer buffer;
  std::ostream out(&buffer);
  std::ostream err(&buffer);
  out.exceptions(std::ios::badbit);
  err.exceptions(std::ios::badbit);
  EXPECT_EQ(cli::Run({"init", "--machine", Machine()}, out, err), 2);
  EXPECT_EQ(cli::Run({"conquer"}, out, err), 2);
}

TEST_F(UsageTest, ControlCharactersOfArgumentsAreEscaped) {
  const Outcome outcome = RunProgram({"scan", "--machine", "/absent\x1B[31m"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_FALSE(Holds(outcome.err, "\x1B"));
  EXPECT_TRUE(Holds(outcome.err, "\\x1B[31m")) << outcome.err;
}

TEST_F(UsageTest, ProgressIsDrawnOnATerminalOnly) {
  WriteMix();
  Init();
  std::ostringstream out;
  std::ostringstream terminal;
  cli::Run({"collect", "--machine", Machine()}, out, terminal, true);
  EXPECT_TRUE(Holds(terminal.str(), "\r\x1B[K")) << terminal.str();
  EXPECT_FALSE(Holds(out.str(), "\x1B"));
  std::ostringstream quiet;
  cli::Run({"collect", "--machine", Machine(), "--quiet"}, out, quiet, true);
  EXPECT_FALSE(Holds(quiet.str(), "\x1B")) << quiet.str();
  EXPECT_FALSE(Holds(RunProgram({"collect", "--machine", Machine()}).err, "\x1B"));
}

}  // namespace
}  // namespace norvo::cli
