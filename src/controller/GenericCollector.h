#pragma once

#include <vector>

#include "services/Component.h"

namespace norvo {

/// The generic files in a folder and below: files ending in .ini with a section "Global
/// Properties" that has a "PavaneVersion" key. In name order without regard to case, folder by
/// folder; the folders that a drive scan skips are skipped here too. What cannot be listed or read
/// costs one log line.
std::vector<String> CollectGenericFiles(Component& component, StringView folder);

}  // namespace norvo
