#include "automation/Dates.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

struct DatedText {
  double days;
  StringView text;
};

TEST(Dates, AreWrittenMonthFirstOnATwelveHourClock) {
  constexpr DatedText kRows[] = {
      {37755 + 10.2 / 24, u"5/14/2003 10:12:00 AM"},
      {37755, u"5/14/2003 12:00:00 AM"},
      {37755.5, u"5/14/2003 12:00:00 PM"},
      {37755 + 13.0 / 24, u"5/14/2003 1:00:00 PM"},
      {36585, u"2/29/2000 12:00:00 AM"},
      {36526, u"1/1/2000 12:00:00 AM"},
      {36525 + 86399.0 / 86400, u"12/31/1999 11:59:59 PM"},
      {1, u"12/31/1899 12:00:00 AM"},
      {37755 + 9.5 / 86400, u"5/14/2003 12:00:10 AM"},
  };
  for (const DatedText& row : kRows) EXPECT_TEXT(DateText(Date{row.days}), row.text);
}

TEST(Dates, Before1899HaveTheirTimeOfDayAsTheFraction) {
  EXPECT_TEXT(DateText({-1.25}), u"12/29/1899 6:00:00 AM");
  EXPECT_TEXT(DateText({-1.0}), u"12/29/1899 12:00:00 AM");
  EXPECT_TEXT(DateText({-0.25}), u"12/30/1899 6:00:00 AM");
  EXPECT_TEXT(DateText({0.25}), u"12/30/1899 6:00:00 AM");
  EXPECT_TEXT(DateText({37755.9999999}), u"5/15/2003 12:00:00 AM");
}

TEST(Dates, AreThoseOfTheGregorianCalendarHoweverFarAway) {
  constexpr DatedText kRows[] = {
      {60, u"2/28/1900 12:00:00 AM"},  // 1900 was no leap year
      {61, u"3/1/1900 12:00:00 AM"},        {-109205, u"1/1/1601 12:00:00 AM"},
      {-693593.5, u"1/1/1 12:00:00 PM"},    {-693594, u"12/31/0 12:00:00 AM"},
      {-693900, u"2/29/0 12:00:00 AM"},     {-693959, u"1/1/0 12:00:00 AM"},
      {-693960, u"12/31/-1 12:00:00 AM"},   {-840056, u"1/1/-400 12:00:00 AM"},
      {2958465, u"12/31/9999 12:00:00 AM"}, {11274306, u"12/31/32767 12:00:00 AM"},
      {11274307, u"1/1/32768 12:00:00 AM"}, {-12661860, u"12/31/-32768 12:00:00 AM"},
  };
  for (const DatedText& row : kRows) EXPECT_TEXT(DateText(Date{row.days}), row.text);
}

TEST(Dates, OfMomentsCountDaysFromTheEndOf1899) {
  using namespace std::chrono;
  const auto date = [](year_month_day day, seconds time) {
    return DateOf(local_days(day) + time).days;
  };
  EXPECT_DOUBLE_EQ(date(1970y / January / 1, 0s), 25569);
  EXPECT_DOUBLE_EQ(date(2003y / May / 14, 12h), 37755.5);
  EXPECT_DOUBLE_EQ(date(1900y / March / 1, 0s), 61);
  EXPECT_DOUBLE_EQ(date(1899y / December / 30, 6h), 0.25);
  EXPECT_DOUBLE_EQ(date(1601y / January / 1, 0s), -109205);
  EXPECT_DOUBLE_EQ(date(0y / January / 1, 0s), -693959);
  EXPECT_DOUBLE_EQ(date(year(-1) / December / 31, 23h), -693960 - 23.0 / 24);
}

TEST(Dates, OfMomentsBefore1899CountTheTimeOfDayBackward) {
  using namespace std::chrono;
  constexpr local_days kDay(1899y / December / 29);
  EXPECT_DOUBLE_EQ(DateOf(local_seconds(kDay)).days, -1);
  EXPECT_DOUBLE_EQ(DateOf(kDay + 6h).days, -1.25);
  EXPECT_DOUBLE_EQ(DateOf(kDay + 86399s).days, -1 - 86399.0 / 86400);
}

}  // namespace
}  // namespace norvo
