#pragma once

#include <optional>

#include "services/FileSystem.h"
#include "text/Text.h"

namespace norvo {

/// What a song's file tells of it, whatever kind of sound file and of tag it is. Texts are one line
/// without blanks around it, and empty where nothing is told.
struct SongTags {
  String artist;  ///< the first, where the tag names several
  String album;
  String title;
  String genre;        ///< by its name; where the tag has a number, by that number's name
  int track = 0;       ///< from 1; 0 where none is told
  double seconds = 0;  ///< by the sound, else by the tag; 0 where neither tells

  bool operator==(const SongTags&) const = default;
};

/// Nothing when the file is no sound file that can be understood. Reads no more of it than the tag
/// and the first and last pieces of sound (see `TagStream` for the limits). A text is cut at 4096
/// characters. Without `withLength` the length is not told, which saves looking at the sound.
/// RunTimeError when the file cannot be opened or read.
std::optional<SongTags> ReadSongTags(FileSystem& files, StringView path, bool withLength = true);

}  // namespace norvo
