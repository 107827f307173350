#include "lists/MarkupScanner.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// The tags of a text, with the text before each in front and the attribute x behind.
Lines Tags(StringView text) {
  Lines lines;
  MarkupScanner tags(text);
  while (tags.Next()) {
    const bool closes = tags.Closes(u"t");
    const bool known = closes || tags.Opens(u"t");
    lines.push_back(Utf8(tags.TextBefore()) + "<" + (closes ? "/" : "") + (known ? "t" : "other") +
                    (tags.IsSelfClosing() ? "/>" : ">") + Utf8(tags.Attribute(u"x")));
  }
  lines.push_back(Utf8(tags.TextBefore()));
  return lines;
}

TEST(MarkupScanner, TagsAndTheTextsBetweenThemAreFound) {
  EXPECT_EQ(Tags(u"a<t>b</T>c<o/>d"), (Lines{"a<t>", "b</t>", "c<other/>", "d"}));
  EXPECT_EQ(Tags(u""), (Lines{""}));
  EXPECT_EQ(Tags(u"a"), (Lines{"a"}));
}

TEST(MarkupScanner, OnlyALetterBehindTheBracketMakesATag) {
  EXPECT_EQ(Tags(u"1<2 < <! <? </ </3 <> <t>"), (Lines{"1<2 < <! <? </ </3 <> <t>", ""}));
  EXPECT_EQ(Tags(u"a<"), (Lines{"a<"}));
  EXPECT_EQ(Tags(u"a</"), (Lines{"a</"}));
  EXPECT_EQ(Tags(u"a<t"), (Lines{"a<t>", ""}));
}

TEST(MarkupScanner, AttributesHaveAnyQuotesOrNone) {
  EXPECT_EQ(Tags(u"<t x=\"1 '2>\"/><t X = '3\"4'><t\nx\n=\n5 /><t x=6/><t y x><t y=1 x=7>"),
            (Lines{"<t/>1 '2>", "<t>3\"4", "<t/>5", "<t/>6", "<t>", "<t>7", ""}));
  EXPECT_EQ(Tags(u"<t x=1 x=2 / ><t/x=3><t x><t x=><t x=''>"),
            (Lines{"<t>1", "<t>3", "<t>", "<t>", "<t>", ""}));
}

TEST(MarkupScanner, AValueHoldsBracketsUnlessATagBegins) {
  EXPECT_EQ(Tags(u"<t x=\"I <3 > you\">"), (Lines{"<t>I <3 > you", ""}));
  EXPECT_EQ(Tags(u"<t x=\"1></t><t x=\"2/></t>"), (Lines{"<t>1", "</t>", "<t/>2", "</t>", ""}));
  EXPECT_EQ(Tags(u"<t x=\"1 </t>"), (Lines{"<t>1 ", "</t>", ""}));
  EXPECT_EQ(Tags(u"<t x='1"), (Lines{"<t>1", ""}));
}

TEST(MarkupScanner, ATagEndsAtTheLatestWhereTheNextBegins) {
  EXPECT_EQ(Tags(u"<t x=1<t x=2 <t y <o>"), (Lines{"<t>1", "<t>2", "<t>", "<other>", ""}));
}

TEST(MarkupScanner, CommentsHideTagsOnlyWhenTheyEnd) {
  EXPECT_EQ(Tags(u"a<!--<t>-->b<!---->c<t>d<!-- x"), (Lines{"a<t>", "d<!-- x"}));
  EXPECT_EQ(Tags(u"<!-- a <t> <!-- b <o>"), (Lines{"<!-- a <t>", " <!-- b <other>", ""}));
  EXPECT_EQ(Tags(u"<t x='<!--'>-->"), (Lines{"<t><!--", "-->"}));
}

TEST(MarkupScanner, OnlyTheFirstAttributesAreKept) {
  String text = u"<t ";
  for (int i = 0; i < 100; ++i) text += u"a=1 ";
  EXPECT_EQ(Tags(text + u"x=2><t x=3>"), (Lines{"<t>", "<t>3", ""}));
}

}  // namespace
}  // namespace norvo
