#include "platform/nt/WideNames.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

TEST(WideNames, AreUtf8AndComeBackWhateverUnitsTheyHave) {
  const String names[] = {
      u"",        u"Song.mp3",     u"M\u00FCsik \u20AC",  u"\xD83D\xDE00", u"\xD83Dx",
      u"x\xDE00", u"\xDE00\xD83D", u"\xD83D\xD83D\xDE00", u"\xD7FF\xE000"};
  for (const String& name : names) {
    const std::optional<String> back = ToWideName(FromWideName(name));
    ASSERT_TRUE(back);
    EXPECT_TEXT(*back, name);
  }
  EXPECT_EQ(FromWideName(u"M\u00FCsik"), "M\xC3\xBCsik");
  EXPECT_EQ(FromWideName(u"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
}

TEST(WideNames, HalfAPairIsNoUtf8) {
  EXPECT_EQ(FromWideName(u"a\xD83Dz"), "a\xED\xA0\xBDz");
  EXPECT_EQ(FromWideName(u"\xDE00"), "\xED\xB8\x80");
}

TEST(WideNames, OtherBytesThatAreNoUtf8LeadNowhere) {
  for (const char* const bytes : {"\xFF", "a\xC3", "\xED\xA0", "\xED\xA0\xBD\xFF", "\xC0\xAF"}) {
    EXPECT_FALSE(ToWideName(bytes)) << bytes;
  }
}

TEST(WideNames, TheSystemsForbiddenOnesCannotBeAFiles) {
  for (const StringView name : {u"", u".", u"..", u"a:b", u"a\\b", u"a/b", u"a<b", u"a>b", u"a\"b",
                                u"a|b", u"a?b", u"a*b", u"a\nb", u"a\x1F"}) {
    EXPECT_EQ(FailureOfName(name).kind, Kind::InvalidName) << Utf8(name);
  }
  EXPECT_EQ(FailureOfName(StringView(u"a\0b", 3)).kind, Kind::InvalidName);
}

TEST(WideNames, OnesThatTheSystemsOwnCallsWouldBendAreAsGoodAsAny) {
  for (const StringView name : {u"a.", u"a ", u"...", u" a", u"NUL", u"con.txt", u"LPT1"}) {
    EXPECT_FALSE(FailureOfName(name)) << Utf8(name);
  }
}

TEST(WideNames, HaveAtMost255Units) {
  EXPECT_FALSE(FailureOfName(String(255, u'n')));
  EXPECT_EQ(FailureOfName(String(256, u'n')).kind, Kind::NameTooLong);
}

}  // namespace
}  // namespace norvo
