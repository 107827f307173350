#include "platform/files/ShownTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

TEST(ShownTime, IsTheMomentOnTheClockOfTheSystemToTheMinute) {
  const auto before = LocalTime(DiskNow().seconds);
  const std::string shown = ShownNow();
  int year = 0, month = 0, day = 0, hour = 0, minute = 0;
  char rest = 0;
  ASSERT_EQ(std::sscanf(shown.c_str(), "%4d-%2d-%2d %2d:%2d%c", &year, &month, &day, &hour, &minute,
                        &rest),
            5)
      << shown;
  EXPECT_EQ(shown.size(), 16u);
  using namespace std::chrono;
  const year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                            std::chrono::day(unsigned(day))};
  const local_seconds told = local_days(date) + hours(hour) + minutes(minute);
  ASSERT_TRUE(before);
  EXPECT_LE(told, *before + minutes(1));
  EXPECT_GT(told, *before - minutes(1));
}

}  // namespace
}  // namespace norvo
