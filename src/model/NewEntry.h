#pragma once

#include <cstdint>
#include <memory>

#include "model/FormatEntry.h"

namespace norvo {

/// An entry of the class that the playlist type has, with its entry type set. Null for an unknown
/// type.
std::shared_ptr<FormatEntry> NewEntry(Component& component, std::int32_t type);

}  // namespace norvo
