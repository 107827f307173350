#include "platform/windows/WindowsTime.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>

#include "automation/Dates.h"
#include "platform/win32/SystemTicks.h"

namespace norvo {

FileTime ToFileTime(const FILETIME& time) {
  const std::int64_t ticks = TicksOf(time) - kTicksTo1970;
  const std::int64_t seconds = ticks / kTicksPerSecond;
  return ticks % kTicksPerSecond < 0 ? seconds - 1 : seconds;
}

std::int64_t NanosecondsSince1970(const FILETIME& time) {
  constexpr std::int64_t kNanosecondsPerTick = 100;
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / kNanosecondsPerTick;
  const std::int64_t ticks = TicksOf(time) - kTicksTo1970;
  return std::clamp(ticks, -kMost, kMost) * kNanosecondsPerTick;
}

Date ToLocalDate(FileTime time) {
  constexpr std::int64_t kEarliest = -kTicksTo1970 / kTicksPerSecond;
  constexpr std::int64_t kLatest =
      (std::numeric_limits<std::int64_t>::max() - kTicksTo1970) / kTicksPerSecond;
  if (time < kEarliest || time > kLatest) return {};
  const std::optional<std::int64_t> ticks = LocalTicks(time * kTicksPerSecond + kTicksTo1970);
  if (!ticks) return {};
  return DateOf(
      std::chrono::local_seconds(std::chrono::seconds((*ticks - kTicksTo1970) / kTicksPerSecond)));
}

}  // namespace norvo
