#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/files/FileFailure.h"
#include "text/Text.h"

namespace norvo {

/// Names of the disk as this system has them: units of 16 bits, of which any may stand anywhere.

/// As UTF-8. A unit that is half of no pair becomes the three bytes that UTF-8 would have for it:
/// they are no UTF-8, so nobody takes them for a text, but they lead back to the name.
std::string FromWideName(StringView name);

/// The way back, of a name or a path; nothing for all other bytes that are no UTF-8.
std::optional<String> ToWideName(std::string_view bytes);

/// Why a name of a path can be no file's here. None is told for an ordinary one: one with trailing
/// points or blanks, or of a device ("NUL.txt"), is as good as any. The system itself would take
/// what follows a ":" for another stream of the file.
FileFailure FailureOfName(StringView name);

}  // namespace norvo
