#include "lists/ItemNumbers.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(ItemNumbers, LengthsAreSecondsOrClockTimes) {
  EXPECT_EQ(SecondsOf(u"215"), 215);
  EXPECT_EQ(SecondsOf(u" 215.5 "), 215.5);
  EXPECT_EQ(SecondsOf(u"3:35"), 215);
  EXPECT_EQ(SecondsOf(u"00:03:35.5"), 215.5);
  EXPECT_EQ(SecondsOf(u"1:00:01"), 3601);
  EXPECT_EQ(SecondsOf(u"1000000"), 1e6);
}

TEST(ItemNumbers, WhatIsNoLengthIsNone) {
  for (const StringView text : {u"", u" ", u"-1", u"-0:30", u"x", u"3:35 min", u"1000001", u"1e999",
                                u"-1e999", u"0:0:0:1", u":", u"0", u"nan", u"inf"}) {
    EXPECT_EQ(SecondsOf(text), 0);
  }
}

TEST(ItemNumbers, MillisecondsAreSeconds) {
  EXPECT_EQ(SecondsOfMilliseconds(u"215500"), 215.5);
  EXPECT_EQ(SecondsOfMilliseconds(u"-1"), 0);
  EXPECT_EQ(SecondsOfMilliseconds(u"3:35"), 0);
  EXPECT_EQ(SecondsOfMilliseconds(u"1e999"), 0);
}

TEST(ItemNumbers, TracksAreSmallPositiveNumbers) {
  EXPECT_EQ(TrackOf(u"12"), 12);
  EXPECT_EQ(TrackOf(u"9999"), 9999);
  for (const StringView text : {u"", u"0", u"-1", u"x", u"10000", u"1e999"}) {
    EXPECT_EQ(TrackOf(text), 0);
  }
}

}  // namespace
}  // namespace norvo
