#pragma once

#include <chrono>

#include "automation/Variant.h"
#include "text/Text.h"

namespace norvo {

/// The date of a moment of local time.
Date DateOf(std::chrono::local_seconds moment);

/// M/D/YYYY h:mm:ss AM or PM, without leading zeros in month, day and hour.
String DateText(Date date);

}  // namespace norvo
