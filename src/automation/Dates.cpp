#include "automation/Dates.h"

#include <cmath>
#include <cstdint>
#include <cstdio>

namespace norvo {
namespace {

using std::chrono::days;
using std::chrono::local_days;
using std::chrono::year_month_day;

constexpr local_days kDateZero(std::chrono::year{1899} / std::chrono::December / 30);
constexpr std::int64_t kSecondsPerDay = std::chrono::seconds(days(1)).count();

/// The time after which the calendar repeats itself: 400 years.
using Cycle =
    std::chrono::duration<std::int64_t,
                          std::ratio_multiply<std::ratio<400>, std::chrono::years::period>>;

}  // namespace

Date DateOf(std::chrono::local_seconds moment) {
  const local_days day = std::chrono::floor<days>(moment);
  const auto whole = static_cast<double>((day - kDateZero).count());
  const double part = static_cast<double>((moment - day).count()) / kSecondsPerDay;
  // Before date zero the fraction still counts forward from midnight, but is written backward.
  return {whole < 0 ? whole - part : whole + part};
}

String DateText(Date date) {
  // The fraction is the time of day also before 1899, where it does not count backwards.
  const double whole = std::trunc(date.days);
  local_days day = kDateZero + days(static_cast<std::int64_t>(whole));
  std::int64_t time = std::llround(std::fabs(date.days - whole) * kSecondsPerDay);
  if (time == kSecondsPerDay) {
    time = 0;
    day += days(1);
  }
  // A disk may hold dates beyond the year 32767, where std::chrono ends.
  const auto cycle = std::chrono::floor<Cycle>(day.time_since_epoch());
  const year_month_day civil(day - cycle);
  const std::int64_t year = int{civil.year()} + cycle.count() * 400;
  const int hour = static_cast<int>(time / 3600);
  char buffer[64];
  const int length = std::snprintf(
      buffer, sizeof buffer, "%u/%u/%d %d:%02d:%02d %s", unsigned{civil.month()},
      unsigned{civil.day()}, static_cast<int>(year), hour % 12 == 0 ? 12 : hour % 12,
      static_cast<int>(time / 60 % 60), static_cast<int>(time % 60), hour < 12 ? "AM" : "PM");
  return String(buffer, buffer + length);
}

}  // namespace norvo
