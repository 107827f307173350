#pragma once

#include <string>

#include "platform/files/SystemCalls.h"

namespace norvo {

/// Name beside the path for a file that is not whole yet. Made from the file's own name, by a
/// number, since that may be as long as a name can be: what a stopped process left behind is taken
/// over when the same file is written again.
std::string TemporaryPath(const std::string& path);

/// Creates the file of that path below an open folder, in place of one that was left behind.
FileResult<SystemFile> CreateTemporary(const SystemFile& root, const std::string& temporary,
                                       unsigned permissions);

}  // namespace norvo
