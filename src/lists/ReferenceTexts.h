#pragma once

#include <vector>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// The text with each run of %xx as the characters that its bytes are: as UTF-8 when that is
/// valid, else in the code page. A "%" without two hexadecimal digits stays.
String DecodePercent(StringView text, const CodePage& page);

/// What a reference can mean as a text, the likeliest first: as written; with its entities, its
/// percent signs, or both decoded; the same as UTF-8 that was read through the code page; and all
/// that without quotes around it; last the text as it would be had it been read through the code
/// page. Only what differs is listed.
std::vector<String> ReferenceTexts(StringView reference, const CodePage& page);

}  // namespace norvo
