#include "text/Wildcard.h"

#include <gtest/gtest.h>

#include <random>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct PatternRow {
  StringView text;
  StringView pattern;
  bool binary;
  bool caseless;
};

constexpr PatternRow kPatterns[] = {
    // Empty texts and patterns.
    {u"", u"", true, true},
    {u"", u"*", true, true},
    {u"", u"***", true, true},
    {u"", u"?", false, false},
    {u"", u"#", false, false},
    {u"", u"[a]", false, false},
    {u"", u"[]", true, true},
    {u"a", u"", false, false},
    // Plain characters.
    {u"abc", u"abc", true, true},
    {u"abc", u"ABC", false, true},
    {u"Ä", u"ä", false, true},
    {u"abc", u"ab", false, false},
    {u"ab", u"abc", false, false},
    {u"]", u"]", true, true},
    {u"a-b", u"a-b", true, true},
    {u"!", u"!", true, true},
    // Runs.
    {u"abc", u"a*", true, true},
    {u"abc", u"*c", true, true},
    {u"abc", u"a*c", true, true},
    {u"ac", u"a*c", true, true},
    {u"abcbc", u"a*bc", true, true},
    {u"abcb", u"a*bc", false, false},
    {u"a*c", u"a[*]c", true, true},
    {u"abc", u"a[*]c", false, false},
    {u"line\r\nline", u"l*e", true, true},
    // Single characters and digits.
    {u"a", u"?", true, true},
    {u"ab", u"?", false, false},
    {u"\n", u"?", true, true},
    {u"\xD83D\xDE00", u"??", true, true},
    {u"\xD83D\xDE00", u"?", false, false},
    {u"7", u"#", true, true},
    {u"a", u"#", false, false},
    {u"²", u"#", false, false},
    {u"#", u"#", false, false},
    {u"a1b2", u"a#b#", true, true},
    // Sets.
    {u"b", u"[abc]", true, true},
    {u"B", u"[abc]", false, true},
    {u"d", u"[abc]", false, false},
    {u"d", u"[!abc]", true, true},
    {u"A", u"[!abc]", true, false},
    {u"m", u"[a-z]", true, true},
    {u"M", u"[a-z]", false, true},
    {u"m", u"[A-Z]", false, true},
    {u"5", u"[a-z0-9]", true, true},
    {u"-", u"[a-z]", false, false},
    {u"-", u"[-a]", true, true},
    {u"-", u"[a-]", true, true},
    {u"b", u"[a-]", false, false},
    {u"-", u"[!a-]", false, false},
    {u"5", u"[#]", true, true},
    {u"#", u"[#]", true, true},
    {u"x", u"[#]", false, false},
    {u"5", u"[!#]", false, false},
    {u"?", u"[?]", true, true},
    {u"x", u"[?]", false, false},
    {u"[", u"[[]", true, true},
    {u"\\", u"[!\\]", false, false},
    {u"a", u"[!\\]", true, true},
    {u"!", u"[a!]", true, true},
    {u"ab", u"a[]b", true, true},
    {u"ab", u"[]a[][]*[]b[]", true, true},
    // Letters of other scripts belong to A-Z in text compare only.
    {u"Ä", u"[A-Z]", false, true},
    {u"ä", u"[a-z]", false, true},
    {u"À", u"[A-Z]", false, true},
    {u"日", u"[A-Z.#]", false, true},
    {u"¿", u"[A-Z]", false, false},
    {u"Ä", u"[!A-Z]", true, false},
    {u"Ä", u"[A-Y]", false, false},
    {u"Ä", u"[B-Z]", false, false},
    // A pattern that is not valid matches nothing, itself included.
    {u"[", u"[", false, false},
    {u"[a", u"[a", false, false},
    {u"b", u"[z-a]", false, false},
    {u"x", u"*[", false, false},
    {u"", u"*[", false, false},
};

TEST(Wildcard, EachKindOfPatternMatchesAsItShould) {
  for (const PatternRow& row : kPatterns) {
    const std::string shown = Utf8(row.text) + " against " + Utf8(row.pattern);
    EXPECT_EQ(Matches(row.text, row.pattern, Compare::Binary), row.binary) << shown << ", binary";
    EXPECT_EQ(Matches(row.text, row.pattern, Compare::Text), row.caseless) << shown << ", text";
  }
}

TEST(Wildcard, NulIsACharacterLikeAnyOther) {
  const StringView text(u"a\0b", 3);
  EXPECT_TRUE(Matches(text, u"a?b", Compare::Binary));
  EXPECT_TRUE(Matches(text, u"a*b", Compare::Binary));
  EXPECT_TRUE(Matches(text, text, Compare::Binary));
  EXPECT_FALSE(Matches(text, u"a", Compare::Binary));
}

TEST(Wildcard, BracketsMustCloseAndRangesMustRunForward) {
  for (const StringView pattern : {u"", u"*", u"]", u"[]", u"[a]", u"[a-a]", u"[!a-c]", u"[-]",
                                   u"[a-]", u"x[#]y", u"[[]", u"\\[A-Z.#]*", u".\\[A-Z].#]*"}) {
    EXPECT_TRUE(IsValidPattern(pattern)) << Utf8(pattern);
  }
  for (const StringView pattern : {u"[", u"a[", u"[abc", u"[]x[", u"[z-a]", u"[a-z9-0]", u"*[*"}) {
    EXPECT_FALSE(IsValidPattern(pattern)) << Utf8(pattern);
  }
}

/// The rules once more, without sets and without any care for time.
bool MatchesSlowly(StringView text, StringView pattern) {
  if (pattern.empty()) return text.empty();
  const StringView rest = pattern.substr(1);
  if (pattern.front() == u'*') {
    return MatchesSlowly(text, rest) || (!text.empty() && MatchesSlowly(text.substr(1), pattern));
  }
  if (text.empty()) return false;
  const bool same = pattern.front() == u'?' || (pattern.front() == u'#' && IsDigit(text.front())) ||
                    (pattern.front() != u'#' && pattern.front() == text.front());
  return same && MatchesSlowly(text.substr(1), rest);
}

TEST(Wildcard, ShortPatternsOfEveryMixtureMatchByTheRules) {
  constexpr StringView kPatternUnits = u"ab1*?#";
  constexpr StringView kTextUnits = u"ab1";
  std::mt19937 random(20030514);
  const auto draw = [&random](StringView units, std::size_t most) {
    String drawn(random() % (most + 1), u' ');
    for (char16_t& unit : drawn) unit = units[random() % units.size()];
    return drawn;
  };
  std::size_t matched = 0;
  for (int i = 0; i < 50000; ++i) {
    const String pattern = draw(kPatternUnits, 6);
    const String text = draw(kTextUnits, 6);
    const bool expected = MatchesSlowly(text, pattern);
    matched += expected ? 1 : 0;
    ASSERT_EQ(Matches(text, pattern, Compare::Binary), expected)
        << Utf8(text) << " against " << Utf8(pattern);
  }
  EXPECT_GT(matched, 1000u);
}

TEST(Wildcard, ManyAsterisksCostNoMoreThanTheProductOfBothLengths) {
  const String text(20000, u'a');
  String plain;
  String sets;
  for (int i = 0; i < 50; ++i) {
    plain += u"*a";
    sets += u"*[a-b]";
  }
  EXPECT_FALSE(Matches(text, plain + u"b", Compare::Text));
  EXPECT_FALSE(Matches(text, sets + u"[!a-b]", Compare::Text));
  EXPECT_TRUE(Matches(text, plain + u"*", Compare::Text));
  EXPECT_TRUE(Matches(text, String(20000, u'*'), Compare::Text));
  EXPECT_FALSE(Matches(text, String(20000, u'['), Compare::Text));
}

}  // namespace
}  // namespace norvo
