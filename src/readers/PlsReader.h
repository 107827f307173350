#pragma once

#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// Reads a PLS playlist of Winamp or Sonique. A missing file reads as one without entries; false
/// only when the read ends in an error, such as a "NumberOfEntries" that is no number.
bool ReadPLS(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folder);

}  // namespace norvo
