#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// The list of a WPL or ZPL: all elements of SMIL that play a file, with the names that Windows
/// Media Player and Zune give them. See ReadLists.
ListedList WplItems(StringView text, std::size_t most);

}  // namespace norvo
