#pragma once

#include <windows.h>

#include <cstdint>

#include "services/FileSystem.h"

namespace norvo {

/// Times of the system: 100 nanoseconds since 1601, UTC. What neither side can hold becomes the
/// nearest moment that it can.

FileTime ToFileTime(const FILETIME& time);
std::int64_t NanosecondsSince1970(const FILETIME& time);

/// The moment on this machine's clock, by the rules for its zone that hold in that year. Date zero
/// for a moment outside the system's calendar.
Date ToLocalDate(FileTime time);

}  // namespace norvo
