#include "platform/windows/AnsiPage.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(AnsiPageTest, EveryByteComesBack) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  const String text = SystemAnsiPage().Decode(bytes);
  EXPECT_EQ(text.size(), bytes.size());
  EXPECT_TRUE(SystemAnsiPage().Fits(text));
  EXPECT_EQ(SystemAnsiPage().Encode(text), bytes);
}

TEST(AnsiPageTest, ACharacterThatThePageLacksBecomesAQuestionMark) {
  EXPECT_EQ(SystemAnsiPage().Encode(u"a\u4e00b"), "a?b");
  EXPECT_FALSE(SystemAnsiPage().Fits(u"a\u4e00b"));
}

TEST(AnsiPageTest, ACharacterThatOnlyLooksAlikeIsNoReplacement) {
  EXPECT_EQ(SystemAnsiPage().Encode(u"\u0101"), "?");  // a with a macron
}

TEST(AnsiPageTest, TheEmptyTextIsEmpty) {
  EXPECT_EQ(SystemAnsiPage().Decode(""), u"");
  EXPECT_EQ(SystemAnsiPage().Encode(u""), "");
  EXPECT_TRUE(SystemAnsiPage().Fits(u""));
}

}  // namespace
}  // namespace norvo
