#pragma once

#include "move/MediaPlacer.h"
#include "move/MoveWork.h"

namespace norvo {

/// Brings the songs of a move that are not there yet to their places, with progress in bytes, and
/// notes what became of each.
void BringSongs(MediaPlacer& placer, PlaceMode mode, MoveWork& work);

}  // namespace norvo
