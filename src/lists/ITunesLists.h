#pragma once

#include <vector>

#include "lists/ListedItems.h"

namespace norvo {

/// The lists of an iTunes library, or of a list exported from one: those that a person made or
/// could have made. Not the library as a whole, folders of lists, and the lists that iTunes keeps
/// for kinds of media. The reference of a track is its location; a track that has none, since its
/// file was never on this machine, is referred to by its names. See ReadLists.
std::vector<ListedList> ITunesLists(StringView text, std::size_t most);

}  // namespace norvo
