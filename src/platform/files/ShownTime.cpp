#include "platform/files/ShownTime.h"

#include <chrono>
#include <cstdio>
#include <optional>

#include "platform/files/SystemCalls.h"

namespace norvo {

std::string ShownNow() {
  const std::optional<std::chrono::local_seconds> now = LocalTime(DiskNow().seconds);
  if (!now) return "an unknown time";
  const auto day = std::chrono::floor<std::chrono::days>(*now);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(*now - day);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()));
  return text;
}

}  // namespace norvo
