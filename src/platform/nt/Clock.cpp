#include "platform/nt/Clock.h"

#include <algorithm>
#include <limits>

#include "platform/files/SystemCalls.h"
#include "platform/win32/SystemTicks.h"

namespace norvo {
namespace {

constexpr std::int64_t kNanosecondsPerTick = 100;

// Tick 0 stands for "as it is" where times are set.
constexpr std::int64_t kEarliest = -kTicksTo1970 / kTicksPerSecond + 1;
constexpr std::int64_t kLatest =
    (std::numeric_limits<std::int64_t>::max() - kTicksTo1970) / kTicksPerSecond - 1;

std::int64_t TicksOfSecond(std::int64_t seconds) {
  return seconds * kTicksPerSecond + kTicksTo1970;
}

using ClockFunction = VOID(WINAPI*)(LPFILETIME);

/// The finest clock that the system has: Windows 7 has no precise one, and a program that names it
/// would not start there.
ClockFunction FinestClock() {
  const HMODULE kernel = ::GetModuleHandleW(L"kernel32.dll");
  void* const precise =
      reinterpret_cast<void*>(::GetProcAddress(kernel, "GetSystemTimePreciseAsFileTime"));
  return precise != nullptr ? reinterpret_cast<ClockFunction>(precise) : &::GetSystemTimeAsFileTime;
}

}  // namespace

DiskTime DiskTimeOf(std::int64_t ticks) {
  const std::int64_t since1970 = ticks - kTicksTo1970;
  std::int64_t seconds = since1970 / kTicksPerSecond;
  if (since1970 % kTicksPerSecond < 0) --seconds;
  return {seconds, (since1970 - seconds * kTicksPerSecond) * kNanosecondsPerTick};
}

std::int64_t TicksOf(const DiskTime& time) {
  if (time.seconds < kEarliest) return TicksOfSecond(kEarliest);
  if (time.seconds > kLatest) return TicksOfSecond(kLatest);
  return TicksOfSecond(time.seconds) + time.nanoseconds / kNanosecondsPerTick;
}

DiskTime DiskNow() {
  static const ClockFunction clock = FinestClock();
  FILETIME now = {};
  clock(&now);
  return DiskTimeOf(TicksOf(now));
}

std::optional<std::chrono::local_seconds> LocalTime(std::int64_t moment) {
  if (moment < kEarliest || moment > kLatest) return std::nullopt;
  const std::optional<std::int64_t> ticks = LocalTicks(TicksOfSecond(moment));
  if (!ticks) return std::nullopt;
  return std::chrono::local_seconds(std::chrono::seconds(DiskTimeOf(*ticks).seconds));
}

}  // namespace norvo
