#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

namespace norvo {

/// Times as the system counts them: 100 nanoseconds since 1601, UTC. None is negative.

constexpr std::int64_t kTicksPerSecond = 10'000'000;
/// The beginning of 1970.
constexpr std::int64_t kTicksTo1970 = std::int64_t{11'644'473'600} * kTicksPerSecond;

/// A moment that is too far off becomes the farthest.
std::int64_t TicksOf(const FILETIME& time);
FILETIME FromTicks(std::int64_t ticks);

/// The moment on this system's clock, by the rules for its zone that hold in that year. Nothing for
/// a moment outside the system's calendar.
std::optional<std::int64_t> LocalTicks(std::int64_t ticks);

}  // namespace norvo
