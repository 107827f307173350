#include "text/CodePage.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  return bytes;
}

TEST(CodePage, EveryByteComesBackAsItWas) {
  const String text = Windows1252().Decode(AllBytes());
  ASSERT_EQ(text.size(), 256u);
  EXPECT_TRUE(Windows1252().Fits(text));
  EXPECT_EQ(Windows1252().Encode(text), AllBytes());
}

TEST(CodePage, UpperControlsAreTypographicCharacters) {
  EXPECT_TEXT(Windows1252().Decode("\x80\x82\x85\x8A\x91\x92\x93\x94\x96\x97\x99\x9F"),
              u"€‚…Š‘’“”–—™Ÿ");
  EXPECT_TEXT(Windows1252().Decode("\xC4\xD6\xDC\xDF"), u"ÄÖÜß");
}

TEST(CodePage, UnassignedBytesAreControls) {
  EXPECT_EQ(Windows1252().Decode("\x81\x8D\x8F\x90\x9D"), String(u"\x81\x8D\x8F\x90\x9D"));
}

TEST(CodePage, ACharacterWithoutAByteBecomesAQuestionMark) {
  EXPECT_EQ(Windows1252().Encode(u"aĀb"), "a?b");
  EXPECT_EQ(Windows1252().Encode(u"日本"), "??");
  EXPECT_EQ(Windows1252().Encode(u"\x80"), "?");  // the byte 80 is the euro sign
  EXPECT_EQ(Windows1252().Encode(u"\xD83D\xDE00"), "??");
}

TEST(CodePage, OnlyTextsWithABytePerCharacterFit) {
  EXPECT_TRUE(Windows1252().Fits(u""));
  EXPECT_TRUE(Windows1252().Fits(u"Größe 5 €"));
  EXPECT_FALSE(Windows1252().Fits(u"Größe Ā"));
  EXPECT_FALSE(Windows1252().Fits(u"\x9F"));
}

}  // namespace
}  // namespace norvo
