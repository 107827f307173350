#pragma once

#include "move/MediaPlacer.h"
#include "move/MoveWork.h"

namespace norvo {

/// Brings the songs of a move that are not there yet to their places, with progress in bytes, and
/// notes what became of each.
void BringSongs(MediaPlacer& placer, PlaceMode mode, MoveWork& work);

/// Gives the listed songs that stand at places which the 8-bit page cannot tell their plain names.
/// `namer` works from the new machine to itself. One that gets none is warned of.
void GivePlainNames(MediaPlacer& namer, MoveWork& work);

}  // namespace norvo
