#pragma once

#include <vector>

#include "lists/ListedItems.h"

namespace norvo {

/// True for a line that starts one of the sections which hold items: [playlist], [Reference].
bool IsPlsSection(StringView line);

/// The items of a PLS: keys FileN of the section [playlist]; where that lists nothing, keys RefN
/// of the section [Reference]. See ListItems.
std::vector<ListedItem> PlsItems(StringView text, std::size_t most);

}  // namespace norvo
