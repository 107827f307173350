#include "services/FileSystem.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(FileSystem, AFileIsWantedByTheEndOfItsNameInAnyCase) {
  constexpr StringView kEndings[] = {u"m3u", u".pls"};
  EXPECT_TRUE(HasWantedEnding(u"a.M3U", kEndings));
  EXPECT_TRUE(HasWantedEnding(u"xm3u", kEndings));
  EXPECT_TRUE(HasWantedEnding(u"a.pls", kEndings));
  EXPECT_FALSE(HasWantedEnding(u"pls", kEndings));
  EXPECT_FALSE(HasWantedEnding(u"", kEndings));
}

TEST(FileSystem, WithoutEndingsEveryFileIsWanted) {
  EXPECT_TRUE(HasWantedEnding(u"a", {}));
  EXPECT_TRUE(HasWantedEnding(u"", {}));
}

}  // namespace
}  // namespace norvo
