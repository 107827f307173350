#pragma once

#include "cli/Console.h"
#include "move/CollectPlaylists.h"
#include "services/Platform.h"

namespace norvo::cli {

/// Why a playlist has no generic file; empty for an outcome that is no failure, and for one that
/// the queue did not come to.
std::string FailureText(const CollectedPlaylist& playlist);

void SayCollected(const CollectResult& result, Platform& machine, Console& console);
Json CollectedDocument(const CollectResult& result, Platform& machine);

}  // namespace norvo::cli
