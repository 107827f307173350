#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// True for a line such as "#EXTM3U" or "#EXTINF:215,Artist - Title"; "#Extra.mp3" is none.
bool IsM3uDirective(StringView line);

/// The items of an M3U. See ReadLists.
ListedItems M3uItems(StringView text, std::size_t most);

}  // namespace norvo
