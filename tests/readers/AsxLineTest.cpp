#include "readers/AsxLine.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct ValueRow {
  StringView line;
  StringView value;
};

TEST(AsxLineTest, AnElementYieldsTheValueThatGoesWithItsName) {
  constexpr ValueRow kRows[] = {
      {u"<Abstract>a text</Abstract>", u"a text"},
      {u"<Author>Me</Author>", u"Me"},
      {u"<Copyright>2003</Copyright>", u"2003"},
      {u"<Title>Song</Title>", u"Song"},
      {u"<TITLE>Song</TITLE>", u"Song"},
      {u"<Asx Version=\"3.0\">", u"3.0"},
      {u"<asx version = \"3\">", u"3"},
      {u"<Duration value=\"00:03:35.000\" />", u"00:03:35.000"},
      {u"<Banner href=\"b.gif\">", u"b.gif"},
      {u"<Ref href=\"a.mp3\"/>", u"a.mp3"},
      {u"<MoreInfo href=\"http://host/\"/>", u"http://host/"},
      {u"<Other href=\"a.mp3\">text</Other>", u""},
      {u"< Title >Song</Title>", u"Song"},
      {u"  <Title>  Song  </Title>  ", u"Song"},
      {u"<Title>Song", u"Song"},
      {u"<Title>", u""},
      {u"<Title", u""},
      {u"no element", u""},
      {u"", u""},
      // With "=" in the line the name ends at the first blank, and so it is no known name.
      {u"<Abstract>1+1=2</Abstract>", u""},
      {u"<Abstract>a = b</Abstract>", u""},
      {u"<Abstract lang=\"en\">text</Abstract>", u"text"},
  };
  for (const ValueRow& row : kRows) {
    EXPECT_TEXT(ElementValue(row.line), row.value) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineTest, AnAttributeIsTheFirstDoubleQuotedTextBehindItsName) {
  constexpr ValueRow kRows[] = {
      {u"<Ref href=\"a.mp3\" />", u"a.mp3"},
      {u"<Ref HREF=\"a.mp3\" />", u"a.mp3"},
      {u"<Ref href = \"a.mp3\" />", u"a.mp3"},
      {u"<Ref href=\" a b .mp3 \" />", u"a b .mp3"},
      {u"<Ref href=\"a.mp3", u"a.mp3"},
      {u"<Ref href=\"\" other=\"x\" />", u""},
      {u"<Ref href='a.mp3' />", u""},
      {u"<Ref href=a.mp3 />", u""},
      {u"<Ref href='a.mp3' other=\"b\" />", u"b"},
      {u"<Ref \"before\" href />", u""},
      {u"<Ref />", u""},
      {u"", u""},
  };
  for (const ValueRow& row : kRows) {
    EXPECT_TEXT(AttributeValue(row.line, u"href"), row.value) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineTest, ElementTextRunsFromTheFirstClosingToTheNextOpeningBracket) {
  constexpr ValueRow kRows[] = {
      {u"<Title>Song</Title>", u"Song"},
      {u"<Title>a > b</Title>", u"a > b"},
      {u"text <Title>Song</Title><Title>Other</Title>", u"Song"},
      {u"<Title>Song", u"Song"},
      {u"Song</Title", u""},
  };
  for (const ValueRow& row : kRows) {
    EXPECT_TEXT(ElementText(row.line), row.value) << "line: " << Utf8(row.line);
  }
}

struct KindRow {
  StringView line;
  AsxLine kind;
};

TEST(AsxLineTest, TheFirstPatternInOrderDecidesInsideAnEntry) {
  constexpr KindRow kRows[] = {
      {u"<Param Name=\"Artist\" Value=\"X\" />", AsxLine::Param},
      {u"<PARAM NAME=\"Artist\" VALUE=\"X\" />", AsxLine::Param},
      {u"<Param  Name=\"two blanks\" />", AsxLine::Other},
      {u"<Abstract>", AsxLine::Abstract},
      {u"<Ref Href=\"a\"/>", AsxLine::Ref},
      {u"<ref href=\"a\"/>", AsxLine::Ref},
      {u"<Duration value=\"1\"/>", AsxLine::Duration},
      {u"<Author>", AsxLine::Author},
      {u"<Title>", AsxLine::Title},
      {u"<Copyright>", AsxLine::Copyright},
      {u"</Entry>", AsxLine::EntryEnd},
      {u"  text </ENTRY> text", AsxLine::EntryEnd},
      {u"<Entry>", AsxLine::Other},
      {u"<Banner>", AsxLine::Other},
      {u"</Asx>", AsxLine::Other},
      {u"<MoreInfo href=\"x\"/>", AsxLine::Other},
      {u"Param Name", AsxLine::Other},
      {u"", AsxLine::Other},
      // Two patterns on a line: the earlier of the list, not of the line.
      {u"</Entry><Copyright>", AsxLine::Copyright},
      {u"<Copyright><Title>", AsxLine::Title},
      {u"<Title><Author>", AsxLine::Author},
      {u"<Author><Duration>", AsxLine::Duration},
      {u"<Duration><Ref Href>", AsxLine::Ref},
      {u"<Ref Href><Abstract>", AsxLine::Abstract},
      {u"<Abstract><Param Name>", AsxLine::Param},
      {u"<Ref Href=\"a\"/></Entry>", AsxLine::Ref},
  };
  for (const KindRow& row : kRows) {
    EXPECT_EQ(KindInsideEntry(row.line), row.kind) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineTest, TheFirstPatternInOrderDecidesOutsideEntries) {
  constexpr KindRow kRows[] = {
      {u"<Entry>", AsxLine::EntryStart},
      {u"<entry>", AsxLine::EntryStart},
      {u"<Entry ClientSkip=\"no\">", AsxLine::Other},
      {u"<Param name=\"Name\" value=\"x\"/>", AsxLine::Param},
      {u"</Entry>", AsxLine::EntryEnd},
      {u"<Banner href=\"x\">", AsxLine::Banner},
      {u"<Asx Version=\"3\">", AsxLine::AsxVersion},
      {u"<Asx>", AsxLine::Other},
      {u"<Title>", AsxLine::Title},
      {u"<Author>", AsxLine::Author},
      {u"</Asx>", AsxLine::AsxEnd},
      {u"<Abstract>", AsxLine::Other},
      {u"<Ref Href=\"a\"/>", AsxLine::Other},
      {u"</Asx><Author>", AsxLine::Author},
      {u"<Author><Title>", AsxLine::Title},
      {u"<Title><Asx Version>", AsxLine::AsxVersion},
      {u"<Asx Version><Banner", AsxLine::Banner},
      {u"<Banner></Entry>", AsxLine::EntryEnd},
      {u"</Entry><Param name", AsxLine::Param},
      {u"<Param name><Entry>", AsxLine::EntryStart},
      {u"<Entry><Ref Href=\"a\"/></Entry>", AsxLine::EntryStart},
  };
  for (const KindRow& row : kRows) {
    EXPECT_EQ(KindOutsideEntry(row.line), row.kind) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineTest, ABannerEndCanStandAmongOtherTextOrAlone) {
  EXPECT_TRUE(HoldsBannerEnd(u"x</BANNER>y"));
  EXPECT_TRUE(IsBannerEnd(u"</BANNER>"));
  EXPECT_FALSE(IsBannerEnd(u" </Banner>"));
  EXPECT_FALSE(IsBannerEnd(u"</Banner> "));
  EXPECT_FALSE(HoldsBannerEnd(u"<Banner>"));
}

}  // namespace
}  // namespace norvo
