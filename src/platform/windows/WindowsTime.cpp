#include "platform/windows/WindowsTime.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>

#include "automation/Dates.h"

namespace norvo {
namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;

constexpr std::chrono::sys_seconds k1601 =
    std::chrono::sys_days(std::chrono::year{1601} / std::chrono::January / 1);
constexpr std::int64_t kTicksTo1970 = -k1601.time_since_epoch().count() * kTicksPerSecond;

std::int64_t TicksOf(const FILETIME& time) {
  const std::uint64_t ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  return static_cast<std::int64_t>(
      std::min<std::uint64_t>(ticks, std::numeric_limits<std::int64_t>::max()));
}

FILETIME FromTicks(std::int64_t ticks) {
  return {static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
}

/// Nothing for a moment outside the system's calendar.
std::optional<std::int64_t> LocalTicks(std::int64_t ticks) {
  const FILETIME moment = FromTicks(ticks);
  SYSTEMTIME utc = {};
  SYSTEMTIME local = {};
  FILETIME shifted = {};
  TIME_ZONE_INFORMATION rules = {};
  const bool whole = ::FileTimeToSystemTime(&moment, &utc) &&
                     ::GetTimeZoneInformationForYear(utc.wYear, nullptr, &rules) &&
                     ::SystemTimeToTzSpecificLocalTime(&rules, &utc, &local) &&
                     ::SystemTimeToFileTime(&local, &shifted);
  if (!whole) return std::nullopt;
  return TicksOf(shifted);
}

}  // namespace

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
