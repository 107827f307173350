#pragma once

#include <cstdint>

#include "platform/files/FileRecord.h"

namespace norvo {

/// Moments between the disk's records, which have 100 nanoseconds a tick since 1601, and ours. What
/// the system cannot hold becomes the nearest moment that it can.

DiskTime DiskTimeOf(std::int64_t ticks);
std::int64_t TicksOf(const DiskTime& time);

}  // namespace norvo
