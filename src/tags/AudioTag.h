#pragma once

#include <cstdint>
#include <optional>

#include "services/Component.h"
#include "services/FileSystem.h"
#include "text/PackedTexts.h"

namespace norvo {

/// What a file's tag tells of a song, of the kind that the file has: ID3v2 hides ID3v1.
struct AudioTag {
  enum class Kind : std::uint8_t { None, Id3v1, Id3v2 };

  /// Its texts in the order in which they are kept.
  enum Text : std::uint8_t { kAlbum, kArtist, kGenre, kSong, kYear, kTextCount };

  StringView Album() const { return texts.At(kAlbum); }
  StringView Artist() const { return texts.At(kArtist); }
  StringView Genre() const { return texts.At(kGenre); }
  StringView Song() const { return texts.At(kSong); }
  StringView Year() const { return texts.At(kYear); }  ///< of ID3v2

  Kind kind = Kind::None;
  PackedTexts<kTextCount> texts;
  std::int32_t duration = 0;  ///< seconds; of ID3v2
  std::int16_t track = 0;     ///< of ID3v2
};

/// Reads a file's tag; what was read before an error counts too. With a stamp that a look-up has
/// just given, a tag that was read before from the same file is not read again: a song often
/// stands in several playlists. Never raises but for a lack of memory.
AudioTag ReadAudioTag(Component& component, StringView path, const std::optional<FileStamp>& stamp);

}  // namespace norvo
