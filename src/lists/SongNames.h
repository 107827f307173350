#pragma once

#include "text/Text.h"

namespace norvo {

/// True when the last component's extension is one of the sound and film files that players of PCs
/// play, or of the library's own media; case ignored.
bool HasSongExtension(StringView path);

/// True for a file that some player plays: by its extension, or since the library takes it for
/// media, which it does when one of its extensions stands anywhere in the path.
bool IsSongPath(StringView path);

}  // namespace norvo
