#pragma once

#include <cstddef>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// Names and paths that every Windows machine can have, and that the players' playlists, which are
/// text in the 8-bit page, can tell.

/// Characters of the longest path, and bytes of UTF-8 of the longest name: Windows counts the
/// latter in characters, but the disk that holds the machine's folder counts in bytes.
inline constexpr std::size_t kLongestPath = 259;
inline constexpr std::size_t kLongestName = 255;

/// True for a full path on a drive whose every name is such a name, of any length; without a page
/// every character will do that Windows takes.
bool HasPortableNames(StringView path, const CodePage* page);

/// True for one such name; without a page every character will do that Windows takes.
bool IsPortableName(StringView name, const CodePage* page = nullptr);

/// The nearest such name: letters lose their accents, what has no likeness becomes "_"; an
/// extension is kept. At most `most` bytes. "_" for a name of which nothing is left.
String PortableName(StringView name, const CodePage* page = nullptr,
                    std::size_t most = kLongestName);

/// The name with " (number)" in front of its extension, at most `most` bytes.
String NumberedName(StringView name, int number, std::size_t most = kLongestName);

}  // namespace norvo
