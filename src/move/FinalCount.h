#pragma once

#include "move/MoveWork.h"
#include "services/Component.h"

namespace norvo {

/// Counts at the end what stands on the new machine: reads every new playlist afresh, with the
/// patient reader, follows each reference to the file that it leads to, and holds that file's
/// content against the song's on the old machine, in the order of the old playlist. It asks nobody
/// who planned where a song should be. What is not right is warned of, unless that was done
/// already.
///
/// Contents are held against each other by their sizes and by samples of 64 KiB from beginning,
/// middle and end. Where songs were not to be brought only the playlists are counted.
void CountAtEnd(Component& from, Component& to, bool withSongs, MoveWork& work);

}  // namespace norvo
