#pragma once

#include <optional>
#include <string_view>

#include "lists/ListedItems.h"

namespace norvo {

/// How a text is written that says so itself, whatever its file's name: its first line is "#EXTM3U"
/// or "[playlist]" (blanks and comments do not count), or its first tag is that of a list. Nothing
/// for anything doubtful, such as a text that only mentions these.
std::optional<ListSyntax> MarkedSyntax(StringView text);

/// True when a file that begins with these bytes, of which 512 are enough, is a list by its own
/// words, in any encoding; see MarkedSyntax.
bool LooksLikeList(std::string_view firstBytes);

/// How a file is written: by what its text says, else by its name. A file whose name is that of no
/// list that is read has only its text to tell. Nothing when neither does.
///
/// Where the text has no mark it may still not be what the name says: an ".asx" with "<asx" in it
/// is ASX anyway; one that begins as an M3U does is that, and one that begins with a section of a
/// PLS is that, but a PLS has its keys.
std::optional<ListSyntax> SyntaxOf(StringView fileName, StringView text);

}  // namespace norvo
