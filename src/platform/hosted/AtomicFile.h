#pragma once

#include <string>

#include "platform/hosted/HostCalls.h"

namespace norvo {

/// Replaces a file whole: a temporary file beside it, flushed to the disk, then renamed over it.
/// `folder` is an open folder, `path` the file below it. An existing file hands its permissions
/// on. 0 or the `errno` of what failed; the old file is then as it was, and nothing is left over.
int ReplaceFile(int folder, const std::string& path, std::string_view bytes);

}  // namespace norvo
