#include "cli/reference/ManualPage.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

CommandTable TableOf(const CommandRow& command) {
  return {{"norvo-playlists", "Moves lists.", "Text.\n\nExit codes: 0 done.", {}, {}}, {command}};
}

bool Holds(const std::string& page, const std::string& part) {
  return page.find(part) != std::string::npos;
}

TEST(ManualPageTest, NothingInATextIsTakenForTheLanguageOfThePage) {
  const std::string page = ManualPage(
      TableOf({"show", "Show", ".dots and\n\n'quotes', C:\\Music and --help", {}, {}}), "1");
  EXPECT_TRUE(Holds(page, ".PP\n\\&.dots and\n"));
  EXPECT_TRUE(Holds(page, ".PP\n\\&\\(aqquotes\\(aq, C:\\eMusic and \\-\\-help\n")) << page;
}

TEST(ManualPageTest, AnExampleThatIsTooLongGoesOnBehindABackslash) {
  const std::string fits = "norvo-playlists " + std::string(57, 'x');
  const std::string tooLong = "norvo-playlists --from " + std::string(40, 'x') + " --to yyyyyyyyy";
  const std::string page =
      ManualPage(TableOf({"show", "Show", "Examples:\n  " + fits + "\n  " + tooLong, {}, {}}), "1");
  EXPECT_TRUE(Holds(page, ".EX\nnorvo\\-playlists " + std::string(57, 'x') + "\n"));
  EXPECT_TRUE(Holds(page, std::string(40, 'x') + " \\e\n    \\-\\-to yyyyyyyyy\n.EE\n")) << page;
}

TEST(ManualPageTest, TheExitCodesHaveASectionOfTheirOwn) {
  const std::string page = ManualPage(TableOf({"show", "Show", "", {}, {}}), "1");
  EXPECT_TRUE(Holds(page, ".SH DESCRIPTION\n.PP\nText.\n.SH OPTIONS\n")) << page;
  EXPECT_TRUE(Holds(page, "\n.SH EXIT STATUS\n.PP\nExit codes: 0 done.\n.SH SEE ALSO\n")) << page;
}

TEST(ManualPageTest, WhatMustBeGivenStandsInTheSynopsis) {
  CommandRow command{"show", "Show", "", {}, {}};
  command.options.push_back(
      {{"-m", "--machine"}, "DIR", {}, Offer::Folders, "A.", true, false, {}});
  command.options.push_back({{"--log"}, "", {}, Offer::Nothing, "B.", false, false, {}});
  command.words.push_back({{"PATH"}, "TEXT", {}, Offer::Files, "C.", false, true, {}});
  const std::string page = ManualPage(TableOf(command), "1");
  EXPECT_TRUE(Holds(page,
                    ".SH SYNOPSIS\n.B norvo\\-playlists show\n"
                    "\\fB\\-m\\fR, \\fB\\-\\-machine\\fR \\fIDIR\\fR\n"
                    "[\\fIOPTION\\fR]...\\&\n[\\fIPATH\\fR...\\&]\n"))
      << page;
}

}  // namespace
}  // namespace norvo::cli
