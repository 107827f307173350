#pragma once

#include "model/FormatEntry.h"
#include "model/PlaylistTypes.h"
#include "text/Text.h"

namespace norvo {

/// What a file name tells of a song; views of it.
struct FileNamePieces {
  StringView track;
  StringView artist;
  StringView song;
};

/// Takes the extension off and splits at "-": a first piece of digits only is the track; one piece
/// left is the song; otherwise the first is the artist and the rest the song. A name of one piece
/// is the song, also when it is all digits.
FileNamePieces SplitFileName(StringView fileName);

/// A title split into its artist and song; views of it.
struct TitlePieces {
  bool split = false;  ///< a separator was found
  StringView artist;
  StringView song;
};

/// Splits at " - " or " / ", whichever comes first.
TitlePieces SplitTitle(StringView title);

/// Fills an entry's duration, title, song and artist from the extended-information text of its
/// playlist ("#EXTINF" line, PLS title), from the file's own tag, or from the file's name; true
/// when any was found. `playlistType` decides what the text holds. `buffer` is memory that serves
/// for all items.
bool ReadExtendedInfo(StringView text, FormatEntry& entry, std::int32_t playlistType,
                      String& buffer);

}  // namespace norvo
