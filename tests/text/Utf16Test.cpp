#include "text/Utf16.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(Utf16, HalvesOfPairsAreToldFromCharacters) {
  for (const char16_t unit : {u'\xD7FF', u'\xE000', u'a', u'\0'}) {
    EXPECT_FALSE(IsHighSurrogate(unit) || IsLowSurrogate(unit) || IsSurrogate(unit));
  }
  for (const char16_t unit : {u'\xD800', u'\xDBFF'}) {
    EXPECT_TRUE(IsHighSurrogate(unit) && IsSurrogate(unit) && !IsLowSurrogate(unit));
  }
  for (const char16_t unit : {u'\xDC00', u'\xDFFF'}) {
    EXPECT_TRUE(IsLowSurrogate(unit) && IsSurrogate(unit) && !IsHighSurrogate(unit));
  }
}

TEST(Utf16, OnlyAHighHalfBeforeALowOneIsAPair) {
  EXPECT_TRUE(IsPairAt(u"a\xD83C\xDFB5", 1));
  EXPECT_FALSE(IsPairAt(u"a\xD83C\xDFB5", 0));
  EXPECT_FALSE(IsPairAt(u"a\xD83C\xDFB5", 2));
  EXPECT_FALSE(IsPairAt(u"a\xD83C", 1));
  EXPECT_FALSE(IsPairAt(u"\xD83Cz", 0));
  EXPECT_FALSE(IsPairAt(u"\xDFB5\xD83C", 0));
}

TEST(Utf16, ACharacterIsAddedAsOneUnitOrAsAPairThatIsItAgain) {
  for (const char32_t point : {U'\x10000', U'\x1F3B5', U'\x10FFFF'}) {
    String text = u"a";
    AppendCodePoint(text, point);
    ASSERT_EQ(text.size(), 3u);
    ASSERT_TRUE(IsPairAt(text, 1));
    EXPECT_EQ(CodePointOf(text[1], text[2]), point);
  }
  String text;
  AppendCodePoint(text, U'\x1F3B5');
  AppendCodePoint(text, U'\xFFFF');
  AppendCodePoint(text, U'b');
  EXPECT_TEXT(text,
              u"\U0001F3B5\xFFFF"
              u"b");
}

}  // namespace
}  // namespace norvo
