#pragma once

#include <windows.h>

#include "platform/files/FileFailure.h"

namespace norvo {

/// The permissions of which one makes a file writable; without them it is read-only.
constexpr unsigned kAnyWriter = 0222;

/// Of an open file.
bool IsReadOnly(HANDLE file);
/// A folder, and no link to one.
bool IsPlainFolder(HANDLE file);
/// Leaves its other attributes as they are.
FileFailure SetReadOnly(HANDLE file, bool readOnly);

}  // namespace norvo
