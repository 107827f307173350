#pragma once

#include "lists/ListedItems.h"
#include "text/Text.h"

namespace norvo {

/// Takes the first line off `rest` and gives it without its end, CR or LF: CR LF ends a line and an
/// empty one, which says nothing.
StringView TakeLine(StringView& rest);

/// The text without the blanks, control characters and stray byte order marks around it, and before
/// the first NUL character behind its start.
StringView CleanText(StringView text);

/// True when nothing is left of the text when it is cleaned; looks no further than at what is left.
bool SaysNothing(StringView text);

/// The text with every control character as a blank, then cleaned.
String OnOneLine(String text);

/// Sets the item's artist and title from a text like "Artist - Title"; one without " - " is the
/// title.
void SetNames(ListedItem& item, StringView shown);

}  // namespace norvo
