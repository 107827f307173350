#include <time.h>

#include "platform/files/SystemCalls.h"

namespace norvo {

DiskTime DiskNow() {
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return {now.tv_sec, now.tv_nsec};
}

std::optional<std::chrono::local_seconds> LocalTime(std::int64_t moment) {
  const auto utc = static_cast<time_t>(moment);
  struct tm local = {};
  if (::localtime_r(&utc, &local) == nullptr) return std::nullopt;
  return std::chrono::local_seconds(std::chrono::seconds(moment + local.tm_gmtoff));
}

}  // namespace norvo
