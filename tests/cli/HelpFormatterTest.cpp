#include "cli/HelpFormatter.h"

#include "cli/ProgramFixture.h"

namespace norvo::cli {
namespace {

using HelpFormatterTest = ProgramTest;

std::size_t LongestLine(const std::string& text) {
  std::istringstream lines(text);
  std::size_t longest = 0;
  for (std::string line; std::getline(lines, line);) longest = std::max(longest, line.size());
  return longest;
}

TEST_F(HelpFormatterTest, NoLineOfTheHelpIsWiderThanATerminal) {
  EXPECT_LE(LongestLine(RunProgram({"--help"}).out), 80u);
  for (const std::string command :
       {"init", "scan", "collect", "show", "restore", "verify", "migrate"}) {
    const std::string help = RunProgram({command, "--help"}).out;
    EXPECT_LE(LongestLine(help), 80u) << help;
    EXPECT_GT(LongestLine(help), 70u) << help;
  }
}

TEST_F(HelpFormatterTest, TextIsBrokenAnewAndExamplesStay) {
  CLI::App app("About.");
  app.name("norvo-playlists");
  app.footer("A text\nof a few\nwords.\n\n  an  example\n\nAnd " + std::string(90, 'x') + " end.");
  const std::string text = HelpFormatter().make_footer(&app);
  EXPECT_EQ(text.substr(0, text.find("And")), "A text of a few words.\n\n  an  example\n\n");
  EXPECT_EQ(LongestLine(text), 80u);
}

TEST_F(HelpFormatterTest, WhatAnOptionIsGoesOnBelowItself) {
  CLI::App app("About.");
  std::string value;
  app.add_option("--drive", value,
                 "A description that is longer than the column to the right of "
                 "it, and so goes on in a second line");
  const std::string help = HelpFormatter().make_option(app.get_option("--drive"), false);
  EXPECT_EQ(help,
            "  --drive TEXT                A description that is longer than the column to\n"
            "                              the right of it, and so goes on in a second line\n");
}

}  // namespace
}  // namespace norvo::cli
