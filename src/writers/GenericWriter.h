#pragma once

#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// Writes the playlist as a generic file, named after the playlist, from an empty file. A playlist
/// without a name takes what precedes ".m3u" in `fileName`, and keeps it. False, without a word in
/// the log, for a playlist without entries and after any error.
bool WriteGeneric(Component& component, PlaylistRecord& playlist, StringView fileName);

}  // namespace norvo
