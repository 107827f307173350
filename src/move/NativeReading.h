#pragma once

#include "move/VerifyPlaylists.h"
#include "services/Component.h"

namespace norvo {

/// Reads a native playlist with the library and looks at each reference, in order. Where the
/// library's readers give up, the patient reader has a look: at a list that has more lines than
/// they take, and at references that they miss, such as "https://" addresses. The component's
/// observer does not hear of the library's reading.
VerifiedPlaylist ReadNative(Component& library, const String& path);

}  // namespace norvo
