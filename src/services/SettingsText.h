#pragma once

#include "text/Text.h"

namespace norvo {

/// How the lines of a settings file are written; all end in CR LF.

/// The value as it stands behind its key: a line end within it becomes a blank, one at its end and
/// blanks around it are not part of it. `joined` may be used for the result.
StringView StoredValue(StringView value, String& joined);

/// True for a value that leaves an empty line behind its key: one that ends in a line end.
bool LeavesEmptyLine(StringView value) noexcept;

void AppendLine(String& text, StringView line);
void AppendSection(String& text, StringView name);
/// The key's line, and an empty one where the value leaves it.
void AppendSetting(String& text, StringView key, StringView value);

}  // namespace norvo
