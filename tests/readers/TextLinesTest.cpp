#include "readers/TextLines.h"

#include <gtest/gtest.h>

#include "automation/RunTimeError.h"
#include "support/RaisedErrors.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

Lines Split(StringView text) {
  Lines lines;
  for (const StringView line : SplitLines(text)) lines.push_back(Utf8(line));
  return lines;
}

TEST(TextLinesTest, SplitsAtEveryPairAndAtNothingElse) {
  EXPECT_EQ(Split(u"a\r\nb"), Lines({"a", "b"}));
  EXPECT_EQ(Split(u"a\r\n"), Lines({"a", ""}));
  EXPECT_EQ(Split(u"\r\n\r\n"), Lines({"", "", ""}));
  EXPECT_EQ(Split(u"a\rb\nc\n\rd"), Lines({"a\rb\nc\n\rd"}));
  EXPECT_EQ(Split(u"a\r\r\n\nb"), Lines({"a\r", "\nb"}));
  EXPECT_EQ(Split(u"a"), Lines({"a"}));
}

TEST(TextLinesTest, TheEmptyPieceBehindTheLastLineEndIsNoLine) {
  std::vector<StringView> lines(32767, u"x");
  EXPECT_FALSE(ExceedsLineLimit(lines));
  EXPECT_EQ(ReachableLines(lines), 32767u);
  lines.emplace_back();
  EXPECT_FALSE(ExceedsLineLimit(lines));
  EXPECT_EQ(ReachableLines(lines), 32768u);
}

TEST(TextLinesTest, OneLineMoreIsReadBeforeTheReadFailsAndNoneBehindIt) {
  std::vector<StringView> lines(32768, u"x");
  for (int more = 0; more < 3; ++more) {
    EXPECT_TRUE(ExceedsLineLimit(lines)) << lines.size();
    EXPECT_EQ(ReachableLines(lines), 32768u) << lines.size();
    lines.emplace_back(more == 0 ? u"" : u"x");
  }
}

TEST(TextLinesTest, OfFarTooManyLinesOnlySoManyAreSplitThatThisShows) {
  String text;
  for (int i = 0; i < 100000; ++i) text += u"\r\n";
  const std::vector<StringView> lines = SplitLines(text);
  EXPECT_EQ(lines.size(), kMostLines + 2);
  EXPECT_TRUE(ExceedsLineLimit(lines));
  EXPECT_EQ(ReachableLines(lines), kMostLines + 1);
}

TEST(TextLinesTest, ALineOfFourMebiUnitsIsTheLongest) {
  String text = u"x\r\n" + String(kLongestLine, u'x') + u"\r\n";
  EXPECT_EQ(SplitLines(text).size(), 3u);
  text.insert(3, 1, u'x');
  EXPECT_EQ(NumberRaisedBy([&] { SplitLines(text); }), error::kOutOfMemory);
}

}  // namespace
}  // namespace norvo
