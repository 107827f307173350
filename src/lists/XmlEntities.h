#pragma once

#include "text/Text.h"

namespace norvo {

/// The text with its entities as the characters that they stand for: &amp; &lt; &gt; &quot; &apos;
/// in any case, &#38; and &#x26;. Anything else behind a "&" stays as written, and so does a number
/// that is no character. What an entity gives is not looked at again.
String DecodeEntities(StringView text);

}  // namespace norvo
