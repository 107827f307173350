#pragma once

#include "services/Component.h"

namespace norvo {

/// Lets the machine's drive scanner report its folders, and visits in each, but for those of the
/// browser's cache, the files that match one of the comma-separated patterns; the component's
/// watcher hears of them. Sub-folders are visited as folders of their own. Raises error 429 without
/// a drive scanner, error 6 for more than 32767 folders or files of one folder, and what the
/// scanner raises. A folder that cannot be listed costs one log line.
void SearchMedia(Component& component, StringView patterns);

}  // namespace norvo
