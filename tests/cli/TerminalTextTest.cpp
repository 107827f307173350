#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/Json.h"
#include "cli/PlaylistWords.h"
#include "cli/StyledLine.h"
#include "cli/Table.h"
#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

TEST(TerminalTextTest, EscapesWhatSteersATerminal) {
  EXPECT_EQ(TerminalText("a\x1B[0m\r\n\t"), "a\\x1B[0m\\x0D\\x0A\\x09");
  EXPECT_EQ(TerminalText("\xC2\x9B"), "\\x9B");
  EXPECT_EQ(TerminalText("\xE2\x80\xAE"
                         "gpj"),
            "\\u202Egpj");
  EXPECT_EQ(TerminalText("\xFF"), "\xEF\xBF\xBD");
}

TEST(TerminalTextTest, LeavesTextsAlone) {
  const std::string text = "C:\\Musik\\\xC3\x84rzte \xF0\x9F\x8E\xB5 \\x1B";
  EXPECT_EQ(TerminalText(text), text);
}

TEST(TerminalTextTest, AWideCharacterTakesTwoCellsAndACombiningMarkNone) {
  EXPECT_EQ(DisplayWidth("abc"), 3u);
  EXPECT_EQ(DisplayWidth("\xC3\x84"), 1u);
  EXPECT_EQ(DisplayWidth("A\xCC\x88"), 1u);
  EXPECT_EQ(DisplayWidth("\xE9\x9F\xB3\xE6\xA5\xBD"), 4u);
  EXPECT_EQ(DisplayWidth("\xF0\x9F\x8E\xB5"), 2u);          // an emoji
  EXPECT_EQ(DisplayWidth("\xF0\xA0\x80\x80"), 2u);          // a rare Han character
  EXPECT_EQ(DisplayWidth("\xF0\x9D\x84\x9E"), 1u);          // a clef is narrow
  EXPECT_EQ(DisplayWidth("\xE1\x84\x92\xE1\x85\xA1"), 2u);  // a syllable of two signs
  EXPECT_EQ(DisplayWidth("\xE0\xB8\x81\xE0\xB8\xB5"), 1u);  // a vowel above its consonant
}

TEST(TerminalTextTest, ALineInColoursStillCannotBeSteered) {
  const StyledLine line{{"! ", Style::Problem}, {"a\x1B[2Jb", Style::Heading}, {" c"}};
  EXPECT_EQ(TerminalText(line, false), "! a\\x1B[2Jb c");
  EXPECT_EQ(TerminalText(line, true), "\x1B[33m! \x1B[0m\x1B[1ma\\x1B[2Jb\x1B[0m c");
}

TEST(TableTest, AlignsColumns) {
  Table table({{"#", Align::Right}, {"Name"}, {"Last"}});
  table.AddRow({"1", "\xC3\x84", "x"});
  table.AddRow({"10", "Longer", ""});
  const std::vector<std::string> expected = {" #  Name    Last", "--  ------  ----",
                                             " 1  \xC3\x84       x", "10  Longer"};
  EXPECT_EQ(table.Lines(), expected);
}

TEST(TableTest, AVeryWideCellPushesItsOwnLineOnly) {
  Table table({{"A"}, {"B"}});
  table.AddRow({std::string(100, 'w'), "x"});
  table.AddRow({"s", "y"});
  EXPECT_EQ(table.Lines()[2], std::string(100, 'w') + "  x");
  EXPECT_EQ(table.Lines()[3], "s" + std::string(41, ' ') + "y");
}

TEST(JsonTest, EscapesAndStaysTheSameDocument) {
  const std::string odd = "\x1B \x7F \xC2\x9B \xE2\x80\xAE \"\\ \xC3\x84 \xF0\x9F\x8E\xB5 \n";
  const Json document{{"text", odd}, {"list", Json::array({1, 2})}};
  const std::string text = JsonText(document);
  EXPECT_EQ(text.find('\x1B'), std::string::npos);
  EXPECT_EQ(text.find('\x7F'), std::string::npos);
  EXPECT_EQ(text.find("\xC2\x9B"), std::string::npos);
  EXPECT_EQ(text.find("\xE2\x80\xAE"), std::string::npos);
  EXPECT_EQ(Json::parse(text), document);
  EXPECT_EQ(text.back(), '\n');
}

TEST(JsonTest, WholeNumbersHaveNoPoint) {
  EXPECT_EQ(JsonNumber(3000000000.0).dump(), "3000000000");
  EXPECT_EQ(JsonNumber(0.5).dump(), "0.5");
}

TEST(DropCountsTest, TellsHowManyItemsWereDroppedForWhichReason) {
  DropCounts counts;
  EXPECT_EQ(counts.Text(), "0");
  counts.Add({{ItemOutcome::Missing, u"a"}, {ItemOutcome::NotMedia, u"b"}});
  counts.Add({{ItemOutcome::Missing, u"c"}, {ItemOutcome::Empty, {}}});
  counts.Add({{ItemOutcome::NotRegistered, u"d"}});
  EXPECT_EQ(counts.Text(),
            "5 (2 no such file, 1 not a media file, 1 empty reference, 1 not taken by the media "
            "list)");
  EXPECT_EQ(counts.Document().dump(),
            R"({"missing":2,"notMedia":1,"emptyReference":1,"notRegistered":1})");
}

}  // namespace
}  // namespace norvo::cli
