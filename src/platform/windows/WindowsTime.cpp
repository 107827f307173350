#include "platform/windows/WindowsTime.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace norvo {
namespace {

constexpr std::int64_t kTicksPerSecond = 10'000'000;
constexpr std::int64_t kTicksPerDay = 86400 * kTicksPerSecond;
constexpr std::int64_t kTicksTo1970 = 11'644'473'600 * kTicksPerSecond;
constexpr std::int64_t kDaysToDateZero = 109'205;  // from 1601 to 30 December 1899

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
  const auto days = static_cast<double>(*ticks / kTicksPerDay - kDaysToDateZero);
  const double part =
      static_cast<double>(*ticks % kTicksPerDay) / static_cast<double>(kTicksPerDay);
  // Before date zero the fraction still counts forward from midnight, but is written backward.
  return {days < 0 ? days - part : days + part};
}

}  // namespace norvo
