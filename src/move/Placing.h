#pragma once

#include "cli/Console.h"
#include "move/Move.h"
#include "platform/hosted/FilePlacer.h"

namespace norvo {

/// Brings the songs of a move that are not there yet to their places, with progress in bytes, and
/// notes what became of each.
void PlaceSongs(FilePlacer& placer, PlaceMode mode, Move& move, Console& console);

}  // namespace norvo
