#pragma once

#include <cstdint>

#include "services/Component.h"
#include "services/MachineRole.h"
#include "text/Text.h"

/// Small string and file helpers that the classes share. None raises.
namespace norvo::Utility {

/// The path with a backslash at its end, unless it has one.
String AddBackslash(StringView path);

/// What follows the last point; empty without one. A path is taken as plain text.
StringView GetExtension(StringView fileName);

/// Each character of `text` that stands in `from` becomes the one at the same place in `to`, whose
/// last character serves for all further places; with an empty `to` it is deleted.
String ReplaceChars(StringView text, StringView from, StringView to, Compare compare);

/// Deletes the punctuation that names in paths shall not hold and turns "_" into a blank.
void Clean(String& text);
/// The same; the result is also stored in the argument.
String CleanString(String& text);

/// Folder of a program from its App Paths entry, with a trailing backslash; empty unless it is a
/// path on a drive.
String GetAppPath(Component& component, StringView programFile);

/// Folder of the program that opens a class of files, with a trailing backslash; empty unless its
/// command names the program file and begins with a drive.
String GetShellOpenFolder(Component& component, StringView fileClass, StringView programFile);

/// Deletes a file, a read-only one included; nothing happens when it cannot be deleted.
void DeleteFileForced(Component& component, StringView path);

/// Bytes of a file; 0, with a line in the log, when it cannot be told.
double GetFileSize(Component& component, StringView path);

/// One of those in services/MachineRole.h.
std::int32_t GetMachineRole(Component& component);

}  // namespace norvo::Utility
