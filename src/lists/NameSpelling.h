#pragma once

#include "text/Text.h"

namespace norvo {

/// Spellings of one name in Unicode: a letter with its mark is one character or two, and disks and
/// programs differ in which they write. All of these take whole paths, too. A name that no disk
/// can have, since it is too long or has half a character, is given as it is.

/// Each letter with its marks as one character, as far as there is one (form C).
String Composed(StringView path);

/// Each letter and each mark as a character of its own (form D).
String Decomposed(StringView path);

/// What all spellings of a name have in common, in any case.
String FoldedSpelling(StringView path);

}  // namespace norvo
