#pragma once

#include <string>

#include "platform/hosted/HostCalls.h"

namespace norvo {

/// Name beside the path for a file that is not whole yet. Made from the file's own name, by a
/// number, since that may be as long as a name can be: what a stopped process left behind is taken
/// over when the same file is written again.
std::string TemporaryPath(const std::string& path);

/// Creates the file of that path below an open folder, in place of one that was left behind.
HostFile CreateTemporary(int folder, const std::string& temporary, unsigned mode);

/// Replaces a file whole: a temporary file beside it, flushed to the disk, then renamed over it.
/// `folder` is an open folder, `path` the file below it. An existing file hands its permissions
/// on. 0 or the `errno` of what failed; the old file is then as it was, and nothing is left over.
int ReplaceFile(int folder, const std::string& path, std::string_view bytes);

}  // namespace norvo
