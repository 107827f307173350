#pragma once

#include "text/Text.h"

namespace norvo {

/// The file version that a program or library carries, as a text such as "6.0.2800.1106"; empty for
/// any other file. The path is one of platform/windows/SystemPath.h.
String VersionOfFile(const String& systemPath);

}  // namespace norvo
