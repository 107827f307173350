#pragma once

#include <string_view>

namespace norvo::bench {

/** The playlist kinds that the corpus can hold. */
enum class PlaylistKind { kWinampM3u, kWinampPls, kMusicMatch };

/** File extension of a kind, with its point. */
constexpr std::string_view ExtensionOf(PlaylistKind kind) {
  return kind == PlaylistKind::kWinampPls ? ".pls" : ".m3u";
}

}  // namespace norvo::bench
