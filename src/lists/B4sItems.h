#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// The list of a B4S. See ReadLists.
ListedList B4sItems(StringView text, std::size_t most);

}  // namespace norvo
