#include "lists/ReferenceTexts.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

Lines Texts(StringView reference) {
  return Utf8(ReferenceTexts(reference, Windows1252()));
}

TEST(ReferenceTexts, PlainTextMeansItselfAlone) {
  for (const StringView text :
       {u"C:\\Music\\a.mp3", u"100%.mp3", u"A & B.mp3", u"%", u"%4", u"%G0", u"&#;", u"it's.mp3"}) {
    EXPECT_EQ(Texts(text), Lines{Utf8(text)});
  }
  EXPECT_EQ(Texts(u""), Lines{""});
}

TEST(ReferenceTexts, EveryDecodingAndAllOfThemTogetherAreListed) {
  EXPECT_EQ(Texts(u"A &amp; B.mp3"), (Lines{"A &amp; B.mp3", "A & B.mp3"}));
  EXPECT_EQ(Texts(u"A%20B.mp3"), (Lines{"A%20B.mp3", "A B.mp3"}));
  EXPECT_EQ(Texts(u"\"a.mp3\""), (Lines{"\"a.mp3\"", "a.mp3"}));
  EXPECT_EQ(Texts(u"&amp;%20GrÃ¶ÃŸe"),
            (Lines{"&amp;%20GrÃ¶ÃŸe", "&%20GrÃ¶ÃŸe", "&amp; GrÃ¶ÃŸe", "& GrÃ¶ÃŸe", "&amp;%20Größe",
                   "&%20Größe", "&amp; Größe", "& Größe", "&amp;%20GrÃƒÂ¶ÃƒÅ¸e"}));
  EXPECT_EQ(Texts(u"&#37;41"), (Lines{"&#37;41", "%41", "A"}));
}

TEST(ReferenceTexts, PercentSignsAreUtf8OrElseTheCodePage) {
  const auto decoded = [](StringView text) { return Utf8(DecodePercent(text, Windows1252())); };
  EXPECT_EQ(decoded(u"Gr%C3%B6%C3%9Fe"), "Größe");
  EXPECT_EQ(decoded(u"Gr%F6%DFe"), "Größe");
  EXPECT_EQ(decoded(u"%c3%b6 and %f6"), "ö and ö");
  EXPECT_EQ(decoded(u"ä%20%E2%98%BA"), "ä ☺");
  EXPECT_EQ(decoded(u"%"), "%");
  EXPECT_EQ(decoded(u"%%41%4"), "%A%4");
  EXPECT_EQ(decoded(u"%zz%1x%"), "%zz%1x%");
  EXPECT_EQ(decoded(u"%2541"), "%41");
  EXPECT_EQ(decoded(u""), "");
}

TEST(ReferenceTexts, OnlyValidUtf8IsDecodedAgain) {
  EXPECT_EQ(Texts(u"Ã¶.mp3"), (Lines{"Ã¶.mp3", "ö.mp3", "ÃƒÂ¶.mp3"}));
  EXPECT_EQ(Texts(u"Ãx.mp3"), (Lines{"Ãx.mp3", "Ãƒx.mp3"}));
  EXPECT_EQ(Texts(u"Ã¶ ö.mp3"), (Lines{"Ã¶ ö.mp3", "ÃƒÂ¶ Ã¶.mp3"}));
  EXPECT_EQ(Texts(u"Ã¶ ☺.mp3"), (Lines{"Ã¶ ☺.mp3", "ÃƒÂ¶ â˜º.mp3"}));
}

TEST(ReferenceTexts, TheTextAsReadThroughThePageComesLast) {
  EXPECT_EQ(Texts(u"ö.mp3"), (Lines{"ö.mp3", "Ã¶.mp3"}));
  EXPECT_EQ(Texts(u"☺.mp3"), (Lines{"☺.mp3", "â˜º.mp3"}));
}

TEST(ReferenceTexts, QuotesGoInPairsOrASingleDoubleOne) {
  EXPECT_EQ(Texts(u"'a.mp3'").back(), "a.mp3");
  EXPECT_EQ(Texts(u"\" a.mp3 \"").back(), "a.mp3");
  EXPECT_EQ(Texts(u"\"a.mp3").back(), "a.mp3");
  EXPECT_EQ(Texts(u"a.mp3\"").back(), "a.mp3");
  EXPECT_EQ(Texts(u"&quot;a.mp3&quot;").back(), "a.mp3");
  EXPECT_EQ(Texts(u"'a.mp3"), (Lines{"'a.mp3"}));
  EXPECT_EQ(Texts(u"\"").back(), "");
  EXPECT_EQ(Texts(u"'"), (Lines{"'"}));
}

}  // namespace
}  // namespace norvo
