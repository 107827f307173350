#pragma once

#include <vector>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// Before the path in a URL that names a file.
constexpr StringView kFileScheme = u"file:";

/// True for a scheme of two letters or more and "://", but "file://".
bool IsInternetAddress(StringView reference);

/// The paths that a reference in a playlist of that folder can mean, the likeliest first: mostly
/// one; for a "file:" URL that of the decoded URL before that of the URL as written. Each has a
/// drive or starts as a share does; none comes of a text that names nothing. Looks at no disk.
std::vector<String> ReferencePaths(StringView reference, StringView folder, const CodePage& page);

}  // namespace norvo
