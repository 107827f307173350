#pragma once

#include <string>

#include "Song.h"

namespace norvo::bench {

/** The bytes of a small MP3 file with an ID3v2.3 tag, audio-like filler and an ID3v1 trailer. */
std::string MakeSongFile(const Song& song);

}  // namespace norvo::bench
