#pragma once

#include "move/MoveWork.h"
#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

/// The playlist that a move writes beside those of the four players, for players of today: an M3U
/// in UTF-8, which tells every name and every place as it is.

/// Name of its folder, beside those of the players.
inline constexpr StringView kCompanionFolder = u"Modern Players";

/// True for the path of one.
bool IsCompanion(StringView path);

/// Takes over what a playlist was made into: the files of the players, and its companion.
void SetNatives(MovedPlaylist& playlist, std::vector<String> paths);

/// A full path for the companion of a playlist whose generic file tells that original name, which
/// no file has. It has the playlist's own name, while the players' files lose some letters of
/// theirs.
String NewCompanionPath(Component& library, StringView originalName);

/// Its text, with a byte order mark. `seconds` has the length of each item, 0 where it is not
/// known. A song that has no place is no part of it.
std::string CompanionText(const MovedPlaylist& playlist, const std::vector<double>& seconds,
                          const std::vector<MovedSong>& songs);

}  // namespace norvo
