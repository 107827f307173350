#pragma once

#include "text/Text.h"

namespace norvo {

/// Name of a playlist's generic file: up to and including the last point, then "ini"; without a
/// point, the name + ".ini". Works on the text alone. The rule also takes a point off a name that
/// has already lost its extension, so that "a.b" and "a.c" both become "a.ini": intended.
String PlayListToIni(StringView fileName);

}  // namespace norvo
