#include "cli/TextLayout.h"

#include <gtest/gtest.h>

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

using Lines = std::vector<std::string>;

TEST(TextLayout, LinesAreBrokenAtBlanks) {
  EXPECT_EQ(Wrapped("one two three", 7, 0), (Lines{"one two", "three"}));
  EXPECT_EQ(Wrapped("one two three", 7, 2), (Lines{"one two", "  three"}));
  EXPECT_EQ(Wrapped("one", 3, 0), Lines{"one"});
  EXPECT_EQ(Wrapped("", 3, 0), Lines{""});
}

TEST(TextLayout, BlanksOfANameStay) {
  EXPECT_EQ(Wrapped("a  b", 10, 0), Lines{"a  b"});
}

TEST(TextLayout, ALongPathIsBrokenBehindASeparator) {
  EXPECT_EQ(Wrapped("C:\\Music\\Long\\One.mp3", 12, 0), (Lines{"C:\\Music\\", "Long\\One.mp3"}));
  EXPECT_EQ(Wrapped("abcdefghij", 4, 0), (Lines{"abcd", "efgh", "ij"}));
}

// It would take hours if the time grew with the square of the length.
TEST(TextLayout, AWordOfManyLinesIsBrokenAsQuickly) {
  const Lines lines = Wrapped(std::string(4'000'000, 'x'), 10, 2);
  ASSERT_EQ(lines.size(), 500'000u);
  EXPECT_EQ(lines.front(), std::string(10, 'x'));
  EXPECT_EQ(lines[1], "  " + std::string(8, 'x'));
}

TEST(TextLayout, WideCharactersAreNeverCutOrCountedAsNarrow) {
  // Four characters of two cells each.
  const std::string wide = "\xE9\x9F\xB3\xE6\xA5\xBD\xE9\x9F\xB3\xE6\xA5\xBD";
  EXPECT_EQ(Wrapped(wide, 5, 0), (Lines{wide.substr(0, 6), wide.substr(6)}));
  for (const std::string& line : Wrapped(wide + wide + wide, 7, 1)) {
    EXPECT_LE(DisplayWidth(line), 7u) << line;
  }
}

TEST(TextLayout, AMarkStaysWithItsCharacter) {
  const std::string marked = "e\xCC\x81";
  EXPECT_EQ(Wrapped(marked + marked + marked, 2, 0), (Lines{marked + marked, marked}));
}

TEST(TextLayout, AShortPathLacksItsMiddle) {
  const std::string path = "C:\\Documents and Settings\\Ann\\My Music\\One.mp3";
  EXPECT_EQ(ShortPath(path, 100), path);
  EXPECT_EQ(ShortPath(path, 20), "C:\\Do...usic\\One.mp3");
  for (std::size_t cells = 0; cells < path.size(); ++cells) {
    EXPECT_EQ(DisplayWidth(ShortPath(path, cells)), cells);
  }
}

TEST(TextLayout, OfWideCharactersAShortPathTakesNoMoreThanItMay) {
  const std::string path =
      "C:\\\xE9\x9F\xB3\xE6\xA5\xBD\xE9\x9F\xB3\xE6\xA5\xBD\\\xE9\x9F\xB3\xE6\xA5\xBD.mp3";
  for (std::size_t cells = 0; cells < DisplayWidth(path); ++cells) {
    const std::string shown = ShortPath(path, cells);
    EXPECT_LE(DisplayWidth(shown), cells) << shown;
    EXPECT_GE(DisplayWidth(shown) + 2, cells) << shown;
  }
}

TEST(TextLayout, SizesAreToldInMegabytes) {
  const std::pair<double, const char*> rows[] = {
      {0, "0 KB"},         {1, "1 KB"},        {99'000, "99 KB"},  {99'999, "100 KB"},
      {100'000, "0.1 MB"}, {5.34e6, "5.3 MB"}, {1e9, "1000.0 MB"}, {2.25e9, "2.2 GB"}};
  for (const auto& [bytes, text] : rows) EXPECT_EQ(SizeText(bytes), text);
}

TEST(TextLayout, OneThingIsNotSeveral) {
  EXPECT_EQ(Counted(0, "song"), "0 songs");
  EXPECT_EQ(Counted(1, "song"), "1 song");
  EXPECT_EQ(Counted(2, "song"), "2 songs");
}

}  // namespace
}  // namespace norvo::cli
