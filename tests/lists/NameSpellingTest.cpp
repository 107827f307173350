#include "lists/NameSpelling.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

constexpr StringView kComposed = u"C:\\Bj\u00F6rk\\\u00C9tude \u304C.mp3";
constexpr StringView kDecomposed = u"C:\\Bjo\u0308rk\\E\u0301tude \u304B\u3099.mp3";

TEST(NameSpelling, LettersAndTheirMarksAreOneCharacterOrTwo) {
  EXPECT_TEXT(Composed(kDecomposed), kComposed);
  EXPECT_TEXT(Composed(kComposed), kComposed);
  EXPECT_TEXT(Decomposed(kComposed), kDecomposed);
  EXPECT_TEXT(Decomposed(kDecomposed), kDecomposed);
}

TEST(NameSpelling, SpellingsAndCasesFoldToTheSame) {
  EXPECT_TEXT(FoldedSpelling(u"BJO\u0308RK"), FoldedSpelling(u"bj\u00F6rk"));
  EXPECT_NE(FoldedSpelling(u"bjork"), FoldedSpelling(u"bj\u00F6rk"));
  EXPECT_NE(FoldedSpelling(u"Strasse"), FoldedSpelling(u"Stra\u00DFe")) << "two names to a disk";
  EXPECT_NE(FoldedSpelling(u"x\u00B2"), FoldedSpelling(u"x2"));
}

TEST(NameSpelling, WhatNoDiskCanHaveStaysAsItIs) {
  for (const String& name : {String(u""), String(u"\\/"), String(u"a.mp3"), String(u"\xD83D\u00F6"),
                             u"o\u0308" + String(1100, u'x')}) {
    EXPECT_TEXT(Composed(name), name);
    EXPECT_TEXT(Decomposed(name), name);
  }
  EXPECT_TEXT(Composed(String(1100, u'x') + u"\\o\u0308/"), String(1100, u'x') + u"\\\u00F6/");
}

TEST(NameSpelling, ManyMarksAreSpelledInOneGo) {
  String marks;
  while (marks.size() < (1u << 18)) marks += u"\u0345\u0301\u0327";
  EXPECT_TEXT(Composed(marks), marks);
}

}  // namespace
}  // namespace norvo
