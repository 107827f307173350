#pragma once

#include <string>

#include "move/MoveResult.h"

namespace norvo::cli {

/// "restored", "copied", "alreadyThere" and so on, as the document of a move has them.
const char* NameOf(MovedPlaylist::State state);
const char* NameOf(MovedSong::State state);

/// Why a song or a playlist was left out; empty for one that was not.
std::string ReasonText(const MovedSong& song);
std::string ReasonText(const MovedPlaylist& playlist);
/// What was mended, and how.
std::string TextOf(const Mending& mending);
/// Why a generic file was changed.
const char* TextOf(Adjustment::Reason reason);
/// An item that was left out, and why.
std::string TextOf(const MovedItem& item);

}  // namespace norvo::cli
