#pragma once

#include <memory>

#include "model/PlaylistRecord.h"
#include "services/Component.h"
#include "services/TextStream.h"

namespace norvo {

/// Writes the playlist as native files, each new and named by `GetNewPlayListPath`: one for each of
/// `NativeTypes`, whatever the playlist's own type, and none at all for a playlist of an unknown
/// type: intended. Always false; an error ends the files of the extension that was being written,
/// what was written stays, and nothing is logged. Intended.
bool WriteRawPlayList(Component& component, const PlaylistRecord& playlist);

/// Opens a text file for appending, in the 8-bit code page; with `create` also one that is not
/// there yet. True; raises when it cannot be opened.
bool OpenOutFile(Component& component, StringView path, std::unique_ptr<TextWriter>& stream,
                 bool create);

}  // namespace norvo
