#include "platform/win32/SystemTicks.h"

#include <algorithm>
#include <limits>

namespace norvo {

std::int64_t TicksOf(const FILETIME& time) {
  const std::uint64_t ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  return static_cast<std::int64_t>(
      std::min<std::uint64_t>(ticks, std::numeric_limits<std::int64_t>::max()));
}

FILETIME FromTicks(std::int64_t ticks) {
  return {static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
}

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

}  // namespace norvo
