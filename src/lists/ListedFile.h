#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lists/ListedItems.h"
#include "text/CodePage.h"

namespace norvo {

/// What a list file holds.
struct ListedFile {
  ListSyntax syntax = ListSyntax::M3u;  ///< how it is written, whatever its name says
  bool hasTitles = false;               ///< an M3U with lines like "#EXTINF:215,Artist - Title"
  std::vector<ListedList> lists;        ///< see ReadLists
  /// It is no list but for its name, or ends before its own end, so that more may have stood there.
  bool isDamaged = false;
};

/// Reads a list file of any kind that is known, by its name and its text; see SyntaxOf and
/// DecodePlaylist. Nothing for a file of a kind that is not read, or that is no list. Any bytes
/// will do; time and memory are in proportion to their number. Error 7, which says why, for a file
/// that would fill the memory all the same: of more than `kLargestPlaylist` bytes (an iTunes
/// library of more than `kLargestText`), a title or a line of more than 4,194,304 characters, more
/// than 800,000 tags, more lists than `kMostLists`, or more than 20,000,000 characters of titles
/// and paths in one list.
std::optional<ListedFile> ReadListFile(StringView fileName, std::string bytes, const CodePage& page,
                                       std::size_t most = kMostListedItems);

}  // namespace norvo
