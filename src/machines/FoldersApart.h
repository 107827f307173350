#pragma once

#include <filesystem>
#include <vector>

#include "machines/FolderMove.h"

namespace norvo {

/// MoveError when the folders of a move, or a drive of the old machine and one that is written to
/// on the new one, lie in each other: a scan of one would find the other's files. So it is where
/// what is written to holds the documents of this PC, to which its search would not come then.
/// Changes nothing.
void RequireApart(const FolderMove& folders);

/// All that is written to on the new machine, which a search of the old one must not come to: the
/// folder of the machine, and of the drives that its machine.ini has elsewhere those that are for
/// songs, lists and documents.
std::vector<std::filesystem::path> WrittenFolders(const FolderMove& folders);

}  // namespace norvo
