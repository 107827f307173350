#include "text/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(Text, UpperCaseGoesUnitByUnitInAnyScript) {
  EXPECT_EQ(ToUpper(u'a'), u'A');
  EXPECT_EQ(ToUpper(u'z'), u'Z');
  EXPECT_EQ(ToUpper(u'ä'), u'Ä');
  EXPECT_EQ(ToUpper(u'ÿ'), u'Ÿ');
  EXPECT_EQ(ToUpper(u'я'), u'Я');
  EXPECT_EQ(ToUpper(u'ω'), u'Ω');
}

TEST(Text, UnitsWithoutUpperCaseAreTheirOwn) {
  for (const char16_t unit : StringView(u"A1_ß@[`{÷日\xD83D\xDE00")) EXPECT_EQ(ToUpper(unit), unit);
  EXPECT_EQ(ToUpper(u'\0'), u'\0');
  EXPECT_EQ(ToUpper(char16_t{0xFFFF}), char16_t{0xFFFF});
}

TEST(Text, UpperCaseOfUpperCaseChangesNothing) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const char16_t upper = ToUpper(static_cast<char16_t>(unit));
    ASSERT_EQ(ToUpper(upper), upper) << "unit " << unit;
  }
}

TEST(Text, LowerCaseStopsAtAscii) {
  EXPECT_EQ(ToLowerAscii(u'A'), u'a');
  EXPECT_EQ(ToLowerAscii(u'Z'), u'z');
  EXPECT_EQ(ToLowerAscii(u'['), u'[');
  EXPECT_EQ(ToLowerAscii(u'@'), u'@');
  EXPECT_EQ(ToLowerAscii(u'Ä'), u'Ä');
}

TEST(Text, OnlyAsciiDigitsAreDigits) {
  for (char16_t unit = u'0'; unit <= u'9'; ++unit) EXPECT_TRUE(IsDigit(unit));
  for (const char16_t unit : StringView(u"/:a²٣")) EXPECT_FALSE(IsDigit(unit));
}

TEST(Text, EqualTextsFoldAlike) {
  EXPECT_TRUE(EqualsIgnoreCase(u"", u""));
  EXPECT_TRUE(EqualsIgnoreCase(u"Ärzte", u"äRZTE"));
  EXPECT_FALSE(EqualsIgnoreCase(u"a", u""));
  EXPECT_FALSE(EqualsIgnoreCase(u"abc", u"abd"));
  EXPECT_TRUE(EqualsIgnoreCase(StringView(u"a\0b", 3), StringView(u"A\0B", 3)));
  EXPECT_FALSE(EqualsIgnoreCase(StringView(u"a\0b", 3), StringView(u"A\0C", 3)));
  EXPECT_TEXT(Fold(u"Straße ÿ"), u"STRAßE Ÿ");
}

TEST(Text, EndingsAreFoundInAnyCase) {
  EXPECT_TRUE(EndsWithIgnoreCase(u"a.MP3", u".mp3"));
  EXPECT_TRUE(EndsWithIgnoreCase(u"a", u""));
  EXPECT_TRUE(EndsWithIgnoreCase(u"", u""));
  EXPECT_FALSE(EndsWithIgnoreCase(u"mp3", u".mp3"));
  EXPECT_FALSE(EndsWithIgnoreCase(u"", u"x"));
}

TEST(Text, SearchesStartWhereTheyAreTold) {
  EXPECT_EQ(FindIgnoreCase(u"abcABC", u"bC"), 1u);
  EXPECT_EQ(FindIgnoreCase(u"abcABC", u"bc", 2), 4u);
  EXPECT_EQ(FindIgnoreCase(u"abcABC", u"bc", 5), StringView::npos);
  EXPECT_EQ(FindIgnoreCase(u"aab", u"AB"), 1u);
  EXPECT_EQ(FindIgnoreCase(u"ab", u"abc"), StringView::npos);
  EXPECT_EQ(FindIgnoreCase(u"", u"a"), StringView::npos);
}

TEST(Text, ATextIsFoundInAnyCaseAtEachPlaceOfTextsOfAnyLength) {
  for (const StringView sought : {u"x", u"Xy", u"xYz\u0434", u"\u0434x"}) {
    for (std::size_t length = sought.size(); length <= 24; ++length) {
      for (std::size_t place = 0; place + sought.size() <= length; ++place) {
        // What begins as the text does, in whatever script, stands before and behind it.
        String text(length, sought.front() == u'x' ? u'X' : u'\u0434');
        if (sought.size() == 1) text.assign(length, u'\u0414');
        text.replace(place, sought.size(), Fold(sought));
        EXPECT_EQ(FindIgnoreCase(text, sought), place) << length;
        EXPECT_EQ(FindIgnoreCase(text, sought, place), place) << length;
        EXPECT_EQ(FindIgnoreCase(text, sought, place + 1), StringView::npos) << length;
      }
    }
  }
}

TEST(Text, TheEmptyTextIsFoundWhereTheSearchStarts) {
  EXPECT_EQ(FindIgnoreCase(u"abc", u""), 0u);
  EXPECT_EQ(FindIgnoreCase(u"abc", u"", 3), 3u);
  EXPECT_EQ(FindIgnoreCase(u"abc", u"", 4), StringView::npos);
  EXPECT_EQ(FindIgnoreCase(u"", u""), 0u);
}

TEST(Text, TrimTakesBlanksOnly) {
  EXPECT_TEXT(Trim(u"  a b  "), u"a b");
  EXPECT_TEXT(Trim(u"\t a \r\n"), u"\t a \r\n");
  EXPECT_TEXT(Trim(u"   "), u"");
  EXPECT_TEXT(Trim(u""), u"");
  EXPECT_TEXT(Trim(u"\xA0x\xA0"), u"\xA0x\xA0");
}

TEST(Text, TrimmingTakesWhatItIsToldTo) {
  EXPECT_TEXT(Trim(u"\t a\tb \t", IsBlankOrTab), u"a\tb");
  EXPECT_TEXT(Trim(u"\r\n a\x01", IsBlankOrControl), u"a");
  EXPECT_TEXT(Trim(u"\t a \t", IsAsciiControl), u" a ");
  EXPECT_TEXT(TrimStart(u"  a  ", IsBlankOrTab), u"a  ");
  EXPECT_TEXT(TrimEnd(u"  a  ", IsBlankOrTab), u"  a");
  EXPECT_TEXT(Trim(u" \t ", IsBlankOrTab), u"");
  EXPECT_TEXT(Trim(u"", IsBlankOrTab), u"");
}

TEST(Text, ANulEndsAText) {
  EXPECT_TEXT(BeforeNul(u"ab"), u"ab");
  EXPECT_TEXT(BeforeNul(StringView(u"a \0b\0", 5)), u"a ");
  EXPECT_TEXT(BeforeNul(StringView(u"\0a", 2)), u"");
  EXPECT_TEXT(BeforeNul(u""), u"");
}

TEST(Text, ASplitTextHasOnePieceMoreThanSeparators) {
  using Pieces = std::vector<StringView>;
  EXPECT_EQ(Split(u"a:b::c", u':'), (Pieces{u"a", u"b", u"", u"c"}));
  EXPECT_EQ(Split(u":a:", u':'), (Pieces{u"", u"a", u""}));
  EXPECT_EQ(Split(u"a", u':'), (Pieces{u"a"}));
  EXPECT_EQ(Split(u"", u':'), (Pieces{u""}));
}

TEST(Text, OrderIgnoresCaseAndIsComplete) {
  EXPECT_TRUE(LessIgnoreCase(u"a", u"B"));
  EXPECT_TRUE(LessIgnoreCase(u"A", u"b"));
  EXPECT_FALSE(LessIgnoreCase(u"b", u"A"));
  EXPECT_TRUE(LessIgnoreCase(u"ab", u"ABC"));
  EXPECT_TRUE(LessIgnoreCase(u"", u"a"));
  EXPECT_FALSE(LessIgnoreCase(u"a", u"a"));
  EXPECT_NE(LessIgnoreCase(u"A", u"a"), LessIgnoreCase(u"a", u"A"));
}

TEST(Text, CaselessHashAgreesWithCaselessEquality) {
  const std::vector<String> texts = {u"", u"a", u"A", u"Ärzte", u"äRZTE", u"b"};
  for (const String& left : texts) {
    for (const String& right : texts) {
      if (!CaselessEqual{}(left, right)) continue;
      EXPECT_EQ(CaselessHash{}(left), CaselessHash{}(right)) << Utf8(left) << " " << Utf8(right);
    }
  }
  EXPECT_NE(CaselessHash{}(u"ab"), CaselessHash{}(u"ba"));
}

}  // namespace
}  // namespace norvo
