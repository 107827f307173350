#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// The list of an ASX: its Entry elements that have a Ref, whether or not they are closed, and its
/// EntryRefs, which lead to other lists. What
/// stands in a Banner, in a comment or behind </Asx> is none; a Banner that is never closed hides
/// nothing. The list's name is a Title before the first entry. References keep their entities,
/// names do not. See ReadLists.
ListedList AsxItems(StringView text, std::size_t most);

}  // namespace norvo
