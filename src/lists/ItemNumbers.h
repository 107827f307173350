#pragma once

#include "text/Text.h"

namespace norvo {

/// Numbers of items as lists tell them; 0 for what is none, negative, or more than makes sense.

/// The length in a text like "215", "215.5", "3:35" or "0:03:35.5"; seconds.
double SecondsOf(StringView text);

/// The length in a text of milliseconds, like "215000"; seconds.
double SecondsOfMilliseconds(StringView text);

/// The number of a song on its album.
int TrackOf(StringView text);

}  // namespace norvo
