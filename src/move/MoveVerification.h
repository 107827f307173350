#pragma once

#include "move/MoveWork.h"
#include "services/Component.h"

namespace norvo {

/// Reads every native playlist of a move back, through a component that leaves the machine as it
/// is, and holds it against what the playlist listed on the old machine: every song, in order, at
/// its place and with its size, and every address as it was. What is not so is warned of; without
/// songs, that they are not there is not.
void VerifyMove(Component& library, bool withSongs, MoveWork& work);

}  // namespace norvo
