#pragma once

#include "move/MoveResult.h"

namespace norvo::cli {

/// The names that documents have for what a move tells: words that stay as they are, whatever the
/// texts for people say.
const char* CodeOf(MovedPlaylist::State state);
const char* CodeOf(MovedPlaylist::SkipRule rule);
const char* CodeOf(MovedPlaylist::Fault fault);
const char* CodeOf(MovedSong::State state);
const char* CodeOf(MovedItem::Fate fate);
const char* CodeOf(Mending::Kind kind);
const char* CodeOf(Adjustment::Reason reason);
const char* CodeOf(WorkWarning::Kind kind);

/// Why a song was left out; of one that was not brought, what failed.
const char* ReasonCode(const MovedSong& song);
/// Why a playlist was left out or skipped.
const char* ReasonCode(const MovedPlaylist& playlist);

}  // namespace norvo::cli
