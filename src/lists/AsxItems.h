#pragma once

#include <vector>

#include "lists/ListedItems.h"

namespace norvo {

/// The items of an ASX: its Entry elements that have a Ref, whether or not they are closed. What
/// stands in a Banner, in a comment or behind </Asx> is none; a Banner that is never closed hides
/// nothing. References keep their entities, names do not. See ListItems.
std::vector<ListedItem> AsxItems(StringView text, std::size_t most);

}  // namespace norvo
