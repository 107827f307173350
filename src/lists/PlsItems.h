#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// True for a line that starts one of the sections which hold items: [playlist], [Reference].
bool IsPlsSection(StringView line);

/// True for a text with a key FileN that counts.
bool HasPlsKeys(StringView text);

/// The items of a PLS: keys FileN of the section [playlist]; where that lists nothing, keys RefN
/// of the section [Reference]; where there is neither section, keys FileN anywhere. The number of
/// entries that it tells limits nothing. See ReadLists.
ListedItems PlsItems(StringView text, std::size_t most);

}  // namespace norvo
