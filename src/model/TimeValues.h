#pragma once

#include "text/Text.h"

namespace norvo {

/// Clock text "00:00:00.000" of a seconds text. Minutes and hours are rounded, not cut: 90 seconds
/// give 00:02:30.000. The empty text, "-1" and a text with ":" give 00:00:00.000; more than 32767
/// seconds and what is no number give the empty text.
String FormatAsxTime(StringView seconds);

/// Seconds text of a clock text; "0" for a text without ":". Empty for ten hours and more, for
/// fewer than three parts, for a third part without a point, and for parts that are no numbers.
String ParseAsxTime(StringView clock);

}  // namespace norvo
