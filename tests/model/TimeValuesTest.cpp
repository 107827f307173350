#include "model/TimeValues.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct TimeRow {
  StringView given, result;
};

void ExpectAll(String (*convert)(StringView), std::initializer_list<TimeRow> rows) {
  for (const TimeRow& row : rows) {
    SCOPED_TRACE(Utf8(row.given));
    EXPECT_TEXT(convert(row.given), row.result);
  }
}

TEST(FormatAsxTimeTest, NothingAndMinusOneAndClockTextsGiveZero) {
  ExpectAll(FormatAsxTime, {{u"", u"00:00:00.000"},
                            {u"-1", u"00:00:00.000"},
                            {u"0", u"00:00:00.000"},
                            {u":", u"00:00:00.000"},
                            {u"3:35", u"00:00:00.000"},
                            {u"01:02:03.000", u"00:00:00.000"},
                            {u"abc:", u"00:00:00.000"}});
}

TEST(FormatAsxTimeTest, BelowAMinuteThereAreNoMinutes) {
  ExpectAll(FormatAsxTime, {{u"1", u"00:00:01.000"},
                            {u"9", u"00:00:09.000"},
                            {u"10", u"00:00:10.000"},
                            {u"30", u"00:00:30.000"},
                            {u"31", u"00:00:31.000"},
                            {u"59", u"00:00:59.000"}});
}

TEST(FormatAsxTimeTest, MinutesAreRoundedWithHalvesToEven) {
  ExpectAll(FormatAsxTime, {{u"60", u"00:01:00.000"},
                            {u"89", u"00:01:29.000"},
                            {u"90", u"00:02:30.000"},
                            {u"91", u"00:02:31.000"},
                            {u"119", u"00:02:59.000"},
                            {u"120", u"00:02:00.000"},
                            {u"150", u"00:02:30.000"},
                            {u"151", u"00:03:31.000"},
                            {u"210", u"00:04:30.000"},
                            {u"215", u"00:04:35.000"},
                            {u"3569", u"00:59:29.000"},
                            {u"3570", u"00:60:30.000"},
                            {u"3599", u"00:60:59.000"}});
}

TEST(FormatAsxTimeTest, HoursAreRoundedTheSameWay) {
  ExpectAll(FormatAsxTime, {{u"3600", u"01:00:00.000"},
                            {u"3659", u"01:01:59.000"},
                            {u"5399", u"01:30:59.000"},
                            {u"5400", u"02:30:00.000"},
                            {u"7199", u"02:60:59.000"},
                            {u"7200", u"02:00:00.000"},
                            {u"9000", u"02:30:00.000"},
                            {u"9001", u"03:30:01.000"},
                            {u"36000", u""},
                            {u"32767", u"09:06:07.000"}});
}

TEST(FormatAsxTimeTest, SecondsOfAnHourAboveTheFirstAreRoundedInMinutesBelowOneToo) {
  // 3631 seconds: one hour, and 31 seconds that round to a minute.
  ExpectAll(FormatAsxTime, {{u"3630", u"01:00:30.000"}, {u"3631", u"01:01:31.000"}});
}

TEST(FormatAsxTimeTest, WhatIsNo16BitNumberGivesNothing) {
  ExpectAll(FormatAsxTime, {{u"32768", u""},
                            {u"-32769", u""},
                            {u"99999999999", u""},
                            {u"abc", u""},
                            {u"12 s", u""},
                            {u" ", u""},
                            {u"1,000", u""}});
}

TEST(FormatAsxTimeTest, NumbersOfOtherFormsConvertFirst) {
  ExpectAll(FormatAsxTime, {{u" 60 ", u"00:01:00.000"},
                            {u"2.5", u"00:00:02.000"},
                            {u"3.5", u"00:00:04.000"},
                            {u"1e2", u"00:02:40.000"},
                            {u"+5", u"00:00:05.000"}});
}

TEST(FormatAsxTimeTest, ANegativeLengthKeepsItsSignBehindTheZero) {
  ExpectAll(FormatAsxTime, {{u"-2", u"00:00:0-2.000"}, {u"-59", u"00:00:0-59.000"}});
}

TEST(FormatAsxTimeTest, TheSecondsOfANegativeLengthAreItsRestBelowAMinute) {
  ExpectAll(FormatAsxTime, {{u"-60", u"00:00:00.000"}, {u"-90", u"00:00:0-30.000"}});
}

TEST(ParseAsxTimeTest, WithoutAColonTheResultIsZero) {
  ExpectAll(ParseAsxTime, {{u"", u"0"}, {u"215", u"0"}, {u"abc", u"0"}, {u"00.03.35.000", u"0"}});
}

TEST(ParseAsxTimeTest, PartsAreAddedUp) {
  ExpectAll(ParseAsxTime, {{u"00:03:35.000", u"215"},
                           {u"09:59:59.999", u"35999"},
                           {u"1:2:3.5", u"3723"},
                           {u"00:00:00.000", u"0"},
                           {u"9:0:0.", u"32400"},
                           {u"0:546:0.0", u"32760"},
                           {u"9:546:59.0", u"65219"},
                           {u"0:0:100000.5", u"100000"},
                           {u"-1:0:0.0", u"-3600"},
                           {u" 1 : 2 : 3 .0", u"3723"},
                           {u"2.5:0:0.0", u"7200"},
                           {u"0:0:5.1.2", u"5"},
                           {u"0:0:5.0:9", u"5"}});
}

TEST(ParseAsxTimeTest, ProductsAbove16BitsGiveNothing) {
  ExpectAll(ParseAsxTime, {{u"10:00:00.000", u""},
                           {u"-10:00:00.000", u""},
                           {u"0:547:0.0", u""},
                           {u"40000:0:0.0", u""}});
}

TEST(ParseAsxTimeTest, TextsThatAreNoTimeGiveNothing) {
  ExpectAll(ParseAsxTime, {{u":", u""},
                           {u"3:35", u""},
                           {u"3:35.000", u""},
                           {u"00:03:35", u""},
                           {u"::", u""},
                           {u"::.", u""},
                           {u"0:0:.5", u""},
                           {u"a:0:0.0", u""},
                           {u"0:b:0.0", u""},
                           {u"0:0:c.0", u""},
                           {u":0:0.0", u""}});
}

TEST(TimeValuesTest, EveryTextOfSecondsIsFormattedByTheRule) {
  const auto nearest = [](int number, int unit) {
    const int low = number / unit;
    const int twice = 2 * (number % unit);
    return twice > unit || (twice == unit && low % 2 == 1) ? low + 1 : low;
  };
  for (int seconds = 60; seconds <= 32767; ++seconds) {
    const int hours = seconds < 3600 ? 0 : nearest(seconds, 3600);
    const int rest = seconds % 3600;
    char expected[32];
    std::snprintf(expected, sizeof expected, "%02d:%02d:%02d.000", hours, nearest(rest, 60),
                  rest % 60);
    const std::string text = std::to_string(seconds);
    ASSERT_EQ(Utf8(FormatAsxTime(String(text.begin(), text.end()))), expected) << seconds;
  }
}

}  // namespace
}  // namespace norvo
