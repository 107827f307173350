#pragma once

#include <cstdint>
#include <optional>

#include "services/Component.h"
#include "services/FileSystem.h"
#include "text/Text.h"

namespace norvo {

/// What a file's tag tells of a song, of the kind that the file has: ID3v2 hides ID3v1. The texts
/// are views of what the component keeps.
struct AudioTag {
  enum class Kind : std::uint8_t { None, Id3v1, Id3v2 };

  Kind kind = Kind::None;
  StringView album;
  StringView artist;
  StringView genre;
  StringView song;
  StringView year;            ///< of ID3v2
  std::int32_t duration = 0;  ///< seconds; of ID3v2
  std::int16_t track = 0;     ///< of ID3v2
};

/// Reads a file's tag; what was read before an error counts too. With a stamp that a look-up has
/// just given, a tag that was read before from the same file is not read again: a song often
/// stands in several playlists. The texts hold until the next call. Never raises but for a lack of
/// memory.
AudioTag ReadAudioTag(Component& component, StringView path, const std::optional<FileStamp>& stamp);

}  // namespace norvo
