#include "lists/XmlEntities.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct EntityRow {
  StringView text;
  StringView decoded;
};

TEST(XmlEntities, NamedAndNumberedEntitiesAreDecoded) {
  constexpr EntityRow kRows[] = {{u"a &amp; b", u"a & b"},
                                 {u"&lt;&gt;&quot;&apos;", u"<>\"'"},
                                 {u"&AMP;&Quot;", u"&\""},
                                 {u"&#38;&#x26;&#X26;&#0038;", u"&&&&"},
                                 {u"&#228;&#x20AC;&#128512;&#x10FFFF;", u"ä€😀\U0010FFFF"},
                                 {u"&amp;amp;", u"&amp;"},
                                 {u"&&amp;&", u"&&&"},
                                 {u"", u""}};
  for (const EntityRow& row : kRows) EXPECT_TEXT(DecodeEntities(row.text), row.decoded);
}

TEST(XmlEntities, AllElseStaysAsWritten) {
  for (const StringView text :
       {u"&", u"&;", u"&#;", u"&#x;", u"&#0;", u"&#xD800;", u"&#x110000;", u"&#99999999;", u"&#-1;",
        u"&#12a;", u"&#xG;", u"&nbsp;", u"&amp", u"& amp;", u"&amp ;", u"&#00000000038;", u"a;b"}) {
    EXPECT_TEXT(DecodeEntities(text), text);
  }
}

TEST(XmlEntities, EntitySoupIsReadInOneGo) {
  String soup;
  while (soup.size() < (1u << 20)) soup += u"&&#&#x;&amp;;";
  EXPECT_EQ(DecodeEntities(soup).size(), soup.size() - soup.size() / 13 * 4);
}

}  // namespace
}  // namespace norvo
