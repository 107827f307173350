#pragma once

#include "text/Text.h"

namespace norvo::com {

/// Full path of the file that this code was loaded from.
String ModulePath();

}  // namespace norvo::com
