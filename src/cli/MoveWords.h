#pragma once

#include <string>

#include "move/MoveResult.h"

namespace norvo::cli {

/// Words of a move for people who know nothing of its inside. None ends with a point.

/// What has become of a song.
const char* SongOutcome(const MovedSong& song, bool dryRun);
/// Why a song was left out; empty for one that was not.
std::string ReasonText(const MovedSong& song);
/// Why a playlist was left out or skipped; empty for one that was not.
std::string ReasonText(const MovedPlaylist& playlist);
/// Why an item became no entry; empty for one that did.
std::string ReasonText(const MovedItem& item);
/// What was mended, and how.
std::string TextOf(const Mending& mending);
/// Why something is called otherwise now: "another song has that name in the same folder".
const char* TextOf(Adjustment::Reason reason);

}  // namespace norvo::cli
