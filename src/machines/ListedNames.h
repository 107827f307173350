#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/files/SystemCalls.h"

namespace norvo {

/// A name in a folder of this system.
struct ListedName {
  std::string name;  ///< UTF-8, as the disk spells it
  ListedKind kind = ListedKind::Other;
};

/// What a folder holds, in the disk's order.
FileResult<std::vector<ListedName>> NamesIn(const std::filesystem::path& folder);

/// True for a folder, and for a link that leads to one.
bool IsFolder(const std::filesystem::path& parent, const ListedName& name);

}  // namespace norvo
