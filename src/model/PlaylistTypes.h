#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "text/Text.h"

namespace norvo {

/// Codes of the playlist types.
namespace playlist_type {
inline constexpr std::int32_t kUnknown = 0;
inline constexpr std::int32_t kWmpAsx = 1;
inline constexpr std::int32_t kWmpM3u = 2;
inline constexpr std::int32_t kWinampM3u = 3;
inline constexpr std::int32_t kWinampPls = 4;
inline constexpr std::int32_t kSoniquePls = 5;
inline constexpr std::int32_t kMmjbM3u = 6;
}  // namespace playlist_type

enum class Syntax { Asx, M3u, BareM3u, Pls };

/// Everything that the library knows of one playlist type; nobody else spells it out.
struct PlaylistType {
  std::int32_t code;
  StringView name;          ///< "WMP_ASX" and so on
  StringView extension;     ///< of the native files, and of the entries' playlist name
  StringView playerFolder;  ///< folder of the player's restored playlists
  Syntax readAs;            ///< type 2 is read as ASX: intended
  StringView failureText;   ///< log line of a failed read
};

/// The six types, by code.
std::span<const PlaylistType> PlaylistTypes();

/// Null for a code that is none of the six.
const PlaylistType* FindPlaylistType(std::int32_t code);

/// Extension that an entry of that type cuts off its playlist name: ".asx" for types 1 and 2,
/// unlike the playlist's own rule. Empty for an unknown type.
StringView EntryExtension(std::int32_t code);

/// True for the types whose entries are `AsxEntry` objects: 1 and 2.
bool HasAsxEntries(std::int32_t code);

}  // namespace norvo
