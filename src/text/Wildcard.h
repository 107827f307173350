#pragma once

#include "text/Text.h"

namespace norvo {

/// Matches a whole text against a wildcard pattern: `*` any run, `?` one character, `#` one digit,
/// `[abc]`, `[a-z]`, `[!abc]` one character of, or not of, a set. Inside a set `#` stands for a
/// digit and for itself, `*` and `?` for themselves, and a `-` at either end for itself; the empty
/// set `[]` stands for nothing at all. In text compare the range A-Z also takes every character
/// from U+00C0 on. A pattern that is not valid matches nothing. The work is at most the product of
/// both lengths, whatever the pattern.
bool Matches(StringView text, StringView pattern, Compare compare);

/// False for a pattern with a bracket that is never closed or a range that runs backwards.
bool IsValidPattern(StringView pattern);

}  // namespace norvo
