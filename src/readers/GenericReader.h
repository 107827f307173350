#pragma once

#include "model/PlaylistRecord.h"
#include "services/Component.h"
#include "services/IniDocument.h"

namespace norvo {

/// Fills the playlist from the generic file at the full path; entries are appended to those that
/// are there. Not everything that is written comes back: the ASX properties of the playlist and
/// its creation time only for type 1, the size of an entry never. Always false, also after a
/// complete read; what was read before an error (a missing file, a number that is none) stays, and
/// nothing is logged. All intended.
bool ReadGeneric(Component& component, PlaylistRecord& playlist, StringView path);

/// The same from a generic file's text, which stands on no disk.
void ReadGeneric(Component& component, PlaylistRecord& playlist, IniDocument document);

}  // namespace norvo
