#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/Fingerprint.h"

namespace norvo {

/// Names as Windows paths have them, and as the disk has them: UTF-8.

/// How a component of a Windows path is spelled on the disk; nothing when no file can have it: no
/// whole UTF-16, control characters, or nothing but points and blanks.
std::optional<std::string> ToDiskName(StringView component);
/// Adds it to a text; false, with nothing added, for what no file can have.
bool AppendDiskName(std::string& path, StringView component);

/// The text of a name on the disk; nothing for a name that no Windows path can express.
std::optional<String> FromDiskName(std::string_view name);
/// The same question without the text; cheap for plain names.
bool IsExpressible(std::string_view name);

/// The name for a message, with a mark for each byte that has no place in a text.
String ShownDiskName(std::string_view name);

/// A fingerprint that does not regard case nor trailing points and blanks. Both forms of one name
/// have the same; a name on the disk must be expressible.
Fingerprint FingerprintOfName(StringView name);
Fingerprint FingerprintOfDiskName(std::string_view name);

}  // namespace norvo
