#pragma once

#include <cstdint>

#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

/// Path of a new native playlist: in the folder of the type's player below the destination root,
/// named after the bare file name, cut at its first point and cleaned. No file of that name exists
/// yet; numbers are added until that is so, and pile up: Mix, Mix1, Mix12, Mix123. Creates the
/// folder. Empty, with nothing created, without a destination root; error 5 for a name without a
/// point. An unknown type has neither extension nor player folder.
String GetNewPlayListPath(Component& component, StringView fileName, std::int32_t type);

}  // namespace norvo
