#pragma once

#include "lists/ListedItems.h"

namespace norvo {

/// The list of an XSPF: its tracks that have a location; several locations are alternatives. See
/// ReadLists.
ListedList XspfItems(StringView text, std::size_t most);

}  // namespace norvo
