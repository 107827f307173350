#pragma once

#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// Reads a Windows Media Player playlist, ASX or M3U, line by line; false when it cannot be opened
/// or its read ends in an error. The type of its entries comes from the file's name, not from the
/// playlist's type.
bool ReadASX(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folder);

}  // namespace norvo
