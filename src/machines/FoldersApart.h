#pragma once

#include "machines/FolderMove.h"

namespace norvo {

/// MoveError when the folders of a move, or a drive of the old machine and one that is written to
/// on the new one, lie in each other: a scan of one would find the other's files. Changes nothing.
void RequireApart(const FolderMove& folders);

}  // namespace norvo
