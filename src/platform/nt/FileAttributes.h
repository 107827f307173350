#pragma once

#include <windows.h>

#include "platform/files/FileFailure.h"

namespace norvo {

/// Of an open file.
bool IsReadOnly(HANDLE file);
/// A folder, and no link to one.
bool IsPlainFolder(HANDLE file);
/// Leaves its other attributes as they are.
FileFailure SetReadOnly(HANDLE file, bool readOnly);

}  // namespace norvo
