#include "lists/MarkupMending.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(MarkupMending, WhatIsWellFormedStays) {
  for (const StringView text : {u"", u"<a></a>", u"<a/>", u"<a b=\"1\" c=\"&amp;\">x &lt; y</a>",
                                u"<A:b_c-d.e></A:b_c-d.e>"}) {
    EXPECT_TEXT(MendedMarkup(text), text);
  }
}

TEST(MarkupMending, ValuesGetQuotes) {
  EXPECT_TEXT(MendedMarkup(u"<a b=1 c='2' d/>"), u"<a b=\"1\" c=\"2\" d=\"\"/>");
  EXPECT_TEXT(MendedMarkup(u"<a b='\"<'/>"), u"<a b='\"&lt;'/>");
  EXPECT_TEXT(MendedMarkup(u"<a b=1'2\"3'4/>"), u"<a b='1&apos;2\"3&apos;4'/>");
}

TEST(MarkupMending, EveryElementIsClosed) {
  EXPECT_TEXT(MendedMarkup(u"<a><b>x<c>"), u"<a><b>x<c></c></b></a>");
  EXPECT_TEXT(MendedMarkup(u"<a><b><c></A>y"), u"<a><b><c></c></b></a>y");
}

TEST(MarkupMending, AnEndWithoutAStartIsLeftOut) {
  EXPECT_TEXT(MendedMarkup(u"</b><a></b></a></a>"), u"<a></a>");
}

TEST(MarkupMending, NamesBecomeNamesOfXml) {
  EXPECT_TEXT(MendedMarkup(u"<a& 1=x -=y é=z></a&>"), u"<a_ _1=\"x\" _-=\"y\" _=\"z\"></a_>");
}

TEST(MarkupMending, TextKeepsItsEntitiesAndIsNoMarkup) {
  EXPECT_TEXT(MendedMarkup(u"<?x?><a>1 < 2 &amp; & \"3\"</a>"),
              u"&lt;?x?><a>1 &lt; 2 &amp; & \"3\"</a>");
}

}  // namespace
}  // namespace norvo
