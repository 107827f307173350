#pragma once

#include <string>
#include <string_view>

#include "platform/files/FileFailure.h"
#include "platform/files/SystemFile.h"

namespace norvo {

/// Replaces a file whole: a temporary file beside it, flushed to the disk, then renamed over it.
/// `path` is the file below the open folder. An existing file hands its permissions on. When it
/// fails the old file is as it was, and nothing is left over.
FileFailure ReplaceWhole(const SystemFile& root, const std::string& path, std::string_view bytes);

}  // namespace norvo
