#pragma once

#include "model/AsxEntry.h"
#include "model/PlaylistRecord.h"

namespace norvo {

/// Applies a Param line inside an entry. Names that are not known change nothing. Raises error 13
/// or 6 for a bit rate, play count or media attribute that does not convert.
void ApplyEntryParam(StringView line, AsxEntry& entry);

/// Applies a Param line outside any entry.
void ApplyPlaylistParam(StringView line, PlaylistRecord& playlist);

}  // namespace norvo
