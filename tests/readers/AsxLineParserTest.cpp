#include "readers/AsxLineParser.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct ValueRow {
  StringView line;
  StringView value;
};

TEST(AsxLineParserTest, AnElementYieldsTheValueThatGoesWithItsName) {
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

TEST(AsxLineParserTest, AnAttributeIsTheFirstDoubleQuotedTextBehindItsName) {
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

TEST(AsxLineParserTest, ElementTextRunsFromTheFirstClosingToTheNextOpeningBracket) {
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
  AsxLineKind kind;
};

TEST(AsxLineParserTest, TheFirstPatternInOrderDecidesInsideAnEntry) {
  constexpr KindRow kRows[] = {
      {u"<Param Name=\"Artist\" Value=\"X\" />", AsxLineKind::Param},
      {u"<PARAM NAME=\"Artist\" VALUE=\"X\" />", AsxLineKind::Param},
      {u"<Param  Name=\"two blanks\" />", AsxLineKind::Other},
      {u"<Abstract>", AsxLineKind::Abstract},
      {u"<Ref Href=\"a\"/>", AsxLineKind::Ref},
      {u"<ref href=\"a\"/>", AsxLineKind::Ref},
      {u"<Duration value=\"1\"/>", AsxLineKind::Duration},
      {u"<Author>", AsxLineKind::Author},
      {u"<Title>", AsxLineKind::Title},
      {u"<Copyright>", AsxLineKind::Copyright},
      {u"</Entry>", AsxLineKind::EntryEnd},
      {u"  text </ENTRY> text", AsxLineKind::EntryEnd},
      {u"<Entry>", AsxLineKind::Other},
      {u"<Banner>", AsxLineKind::Other},
      {u"</Asx>", AsxLineKind::Other},
      {u"<MoreInfo href=\"x\"/>", AsxLineKind::Other},
      {u"Param Name", AsxLineKind::Other},
      {u"", AsxLineKind::Other},
      // Two patterns on a line: the earlier of the list, not of the line.
      {u"</Entry><Copyright>", AsxLineKind::Copyright},
      {u"<Copyright><Title>", AsxLineKind::Title},
      {u"<Title><Author>", AsxLineKind::Author},
      {u"<Author><Duration>", AsxLineKind::Duration},
      {u"<Duration><Ref Href>", AsxLineKind::Ref},
      {u"<Ref Href><Abstract>", AsxLineKind::Abstract},
      {u"<Abstract><Param Name>", AsxLineKind::Param},
      {u"<Ref Href=\"a\"/></Entry>", AsxLineKind::Ref},
  };
  for (const KindRow& row : kRows) {
    EXPECT_EQ(KindInsideEntry(row.line), row.kind) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineParserTest, TheFirstPatternInOrderDecidesOutsideEntries) {
  constexpr KindRow kRows[] = {
      {u"<Entry>", AsxLineKind::EntryStart},
      {u"<entry>", AsxLineKind::EntryStart},
      {u"<Entry ClientSkip=\"no\">", AsxLineKind::Other},
      {u"<Param name=\"Name\" value=\"x\"/>", AsxLineKind::Param},
      {u"</Entry>", AsxLineKind::EntryEnd},
      {u"<Banner href=\"x\">", AsxLineKind::Banner},
      {u"<Asx Version=\"3\">", AsxLineKind::AsxVersion},
      {u"<Asx>", AsxLineKind::Other},
      {u"<Title>", AsxLineKind::Title},
      {u"<Author>", AsxLineKind::Author},
      {u"</Asx>", AsxLineKind::AsxEnd},
      {u"<Abstract>", AsxLineKind::Other},
      {u"<Ref Href=\"a\"/>", AsxLineKind::Other},
      {u"</Asx><Author>", AsxLineKind::Author},
      {u"<Author><Title>", AsxLineKind::Title},
      {u"<Title><Asx Version>", AsxLineKind::AsxVersion},
      {u"<Asx Version><Banner", AsxLineKind::Banner},
      {u"<Banner></Entry>", AsxLineKind::EntryEnd},
      {u"</Entry><Param name", AsxLineKind::Param},
      {u"<Param name><Entry>", AsxLineKind::EntryStart},
      {u"<Entry><Ref Href=\"a\"/></Entry>", AsxLineKind::EntryStart},
  };
  for (const KindRow& row : kRows) {
    EXPECT_EQ(KindOutsideEntry(row.line), row.kind) << "line: " << Utf8(row.line);
  }
}

TEST(AsxLineParserTest, ABannerEndCanStandAmongOtherTextOrAlone) {
  EXPECT_TRUE(HoldsBannerEnd(u"x</BANNER>y"));
  EXPECT_TRUE(IsBannerEnd(u"</BANNER>"));
  EXPECT_FALSE(IsBannerEnd(u" </Banner>"));
  EXPECT_FALSE(IsBannerEnd(u"</Banner> "));
  EXPECT_FALSE(HoldsBannerEnd(u"<Banner>"));
}

}  // namespace
}  // namespace norvo
