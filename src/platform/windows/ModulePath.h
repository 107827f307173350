#pragma once

#include "text/Text.h"

namespace norvo {

/// Full path of the program or library that holds this code.
String ModulePath();

}  // namespace norvo
