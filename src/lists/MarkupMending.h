#pragma once

#include "text/Text.h"

namespace norvo {

/// The text's tags, as MarkupScanner understands them, as well-formed XML: every value in quotes,
/// every element closed; an end without a start is left out. Comments and declarations go. Takes
/// time and memory in proportion to the text's length.
String MendedMarkup(StringView text);

}  // namespace norvo
