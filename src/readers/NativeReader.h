#pragma once

#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// Reads the native playlist of the record's original file name in the folder, by the reader of the
/// syntax; false when it could not be read to its end.
bool ReadNative(Component& component, PlaylistRecord& playlist, Syntax syntax, StringView folder);

}  // namespace norvo
