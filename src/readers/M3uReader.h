#pragma once

#include <vector>

#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// One item of a Winamp M3U text, as written.
struct M3uItem {
  StringView reference;
  StringView info;        ///< the "#EXTINF" line, cleaned; empty for a bare item
  bool extended = false;  ///< an "#EXTINF" line stands before it
};

/// Splits lines into items. `complete` turns false when the lines end with an "#EXTINF" line or go
/// past the line limit; the items before that still count.
std::vector<M3uItem> SplitM3u(const std::vector<StringView>& lines, bool& complete);

/// Reads a Winamp M3U playlist; false when it cannot be opened or its read ends in an error.
/// `folder` needs no trailing backslash.
bool ReadM3U(Component& component, PlaylistRecord& playlist, StringView fileName,
             StringView folder);

/// Reads a MusicMatch M3U playlist: every line, empty or not, is a reference.
bool ReadMMJB(Component& component, PlaylistRecord& playlist, StringView fileName,
              StringView folder);

}  // namespace norvo
