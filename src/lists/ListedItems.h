#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// How a playlist file is written, whatever its name says.
enum class ListSyntax { Asx, M3u, Pls };

/// One item that a playlist lists, as a tolerant player would find it there.
struct ListedItem {
  /// As written, without blanks around them; none is empty, and there is at least one. Several are
  /// alternatives in order of preference, as an ASX entry with more than one Ref has them.
  std::vector<String> references;
  String title;   ///< this and the names below as the playlist tells them, else empty
  String artist;  ///< of an ASX entry the author when no artist is told
  String album;
  /// A line of an M3U that starts with "#": an item only when there is such a file.
  bool maybeComment = false;
};

/// No list has so many; a file made to fill the memory shall not.
inline constexpr std::size_t kMostListedItems = 1'000'000;

/// How the file is written, by its extension and, where both differ, by its text: an ".m3u" that
/// holds "<asx" is ASX, unless it begins as an M3U does; an ".asx" without it can be an M3U, or a
/// settings file with the section [Reference], which reads as PLS. Nothing for other extensions.
std::optional<ListSyntax> SyntaxOf(StringView fileName, StringView text);

/// Extension of the files that are written so, with its point; of several the first.
StringView ExtensionOf(ListSyntax syntax);

/// What a player would play, in its order; what follows the first `most` items is left out. Looks
/// at no disk; any text will do, and takes time and memory in proportion to its length.
std::vector<ListedItem> ListItems(StringView text, ListSyntax syntax,
                                  std::size_t most = kMostListedItems);

/// Text of a playlist file: UTF-8 and UTF-16 by their byte order marks, else the code page.
String DecodePlaylist(std::string_view bytes, const CodePage& page);

}  // namespace norvo
