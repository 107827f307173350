#include "text/PackedTexts.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(PackedTexts, AreEmptyAtFirst) {
  const PackedTexts<3> texts;
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(texts.At(i), u"");
}

TEST(PackedTexts, EachKeepsItsOwnText) {
  PackedTexts<3> texts;
  texts.Set(1, u"one");
  texts.Set(0, u"nought");
  texts.Set(2, u"two");
  EXPECT_EQ(texts.At(0), u"nought");
  EXPECT_EQ(texts.At(1), u"one");
  EXPECT_EQ(texts.At(2), u"two");
}

TEST(PackedTexts, BecomeShorterAndLongerAndEmpty) {
  PackedTexts<2> texts;
  texts.Set(0, u"a text of some length");
  texts.Set(1, u"beside");
  texts.Set(0, u"short");
  EXPECT_EQ(texts.At(0), u"short");
  texts.Set(0, String(1000, u'x'));
  EXPECT_EQ(texts.At(0), String(1000, u'x'));
  texts.Set(0, u"");
  EXPECT_EQ(texts.At(0), u"");
  EXPECT_EQ(texts.At(1), u"beside");
}

TEST(PackedTexts, ATextMayComeFromAmongThem) {
  PackedTexts<3> texts;
  texts.Set(0, u"0123456789");
  texts.Set(1, texts.At(0));  // without room
  texts.Reserve(200);
  texts.Set(2, texts.At(1).substr(2));  // with room
  texts.Set(1, texts.At(1).substr(5));  // in its own place
  EXPECT_EQ(texts.At(0), u"0123456789");
  EXPECT_EQ(texts.At(1), u"56789");
  EXPECT_EQ(texts.At(2), u"23456789");
}

TEST(PackedTexts, WhatWasReplacedDoesNotPileUp) {
  PackedTexts<2> texts;
  texts.Set(1, u"stays");
  String longer;
  for (int i = 0; i < 2000; ++i) {
    longer += u'x';
    texts.Set(0, longer);
  }
  EXPECT_EQ(texts.At(0), longer);
  EXPECT_EQ(texts.At(1), u"stays");
}

TEST(PackedTexts, APartOfAnotherTakesNoRoom) {
  PackedTexts<4> texts;
  texts.Reserve(16);
  texts.Set(0, u"0123456789");
  for (const StringView part : {u"0123", u"6789", u"0123456789"}) {
    texts.SetAsPart(1, part, 0);
    EXPECT_EQ(texts.At(1), part);
    EXPECT_TRUE(texts.At(1).data() >= texts.At(0).data() &&
                texts.At(1).data() < texts.At(0).data() + texts.At(0).size());
  }
  texts.SetAsPart(2, u"4567", 0);  // stands there, but neither in front nor at the end
  EXPECT_EQ(texts.At(2), u"4567");
  texts.SetAsPart(3, u"01234567890", 0);
  EXPECT_EQ(texts.At(3), u"01234567890");
  texts.SetAsPart(3, u"", 0);
  EXPECT_EQ(texts.At(3), u"");
}

TEST(PackedTexts, APartOutlivesWhatItIsAPartOf) {
  for (const std::size_t room : {0u, 100u}) {
    PackedTexts<3> texts;
    texts.Reserve(room);
    texts.Set(0, u"one and two");
    texts.SetAsPart(1, u"two", 0);
    texts.SetAsPart(2, u"one", 0);
    texts.Set(0, u"eleven");
    EXPECT_EQ(texts.At(0), u"eleven");
    EXPECT_EQ(texts.At(1), u"two");
    EXPECT_EQ(texts.At(2), u"one");
    texts.Set(1, texts.At(1).substr(1));
    EXPECT_EQ(texts.At(1), u"wo");
    EXPECT_EQ(texts.At(2), u"one");
    texts.Set(0, String(500, u'x'));
    EXPECT_EQ(texts.At(0), String(500, u'x'));
    EXPECT_EQ(texts.At(1), u"wo");
    EXPECT_EQ(texts.At(2), u"one");
  }
}

TEST(PackedTexts, WhatWasReplacedDoesNotPileUpBesideParts) {
  PackedTexts<3> texts;
  texts.Set(0, u"one and two");
  texts.SetAsPart(1, u"two", 0);
  std::size_t moves = 0;
  const char16_t* last = nullptr;
  for (int i = 0; i < 2000; ++i) {
    texts.Set(2, i % 2 == 0 ? u"some text" : u"another one");
    if (texts.At(0).data() != std::exchange(last, texts.At(0).data())) ++moves;
  }
  EXPECT_GT(moves, 1u);
  EXPECT_EQ(texts.At(1), u"two");
  EXPECT_EQ(texts.At(2), u"another one");
}

TEST(PackedTexts, TellWhetherAnyMayHaveControls) {
  PackedTexts<2> texts;
  EXPECT_FALSE(texts.MayHaveControls());
  texts.Set(0, u" plain\u0080");
  EXPECT_FALSE(texts.MayHaveControls());
  for (const char16_t control : {u'\0', u'\t', u'\r', u'\n', u'\x1F'}) {
    PackedTexts<2> others = texts;
    others.Set(1, String(u"a text ") + control);
    EXPECT_TRUE(others.MayHaveControls()) << static_cast<int>(control);
  }
}

TEST(PackedTexts, ACopyIsACopy) {
  PackedTexts<2> texts;
  texts.Set(0, u"first");
  PackedTexts<2> copy = texts;
  texts.Set(0, u"other");
  EXPECT_EQ(copy.At(0), u"first");
}

}  // namespace
}  // namespace norvo
