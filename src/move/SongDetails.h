#pragma once

#include "move/MoveWork.h"
#include "services/Component.h"

namespace norvo {

/// Reads the tags of a move's songs, on the old machine, and completes what the generic files tell
/// of them: names in every script and lengths, which the library's own reading of tags, byte by
/// byte and of one kind, does not give. What a playlist itself tells comes first, unless its text
/// is of the 8-bit page and the tag's name does not fit that.
///
/// The files are from then on of the kind whose entries tell most, so that each native playlist
/// made of them has names and lengths, if its kind has room for any.
void CompleteDetails(Component& library, MoveWork& work);

}  // namespace norvo
