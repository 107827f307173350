#pragma once

#include <optional>

#include "text/Text.h"

namespace norvo {

/// Paths in the form in which they are handed to the system. They stand behind a mark (`\\?\`)
/// that lifts the old limit of 260 characters and turns the names of devices ("nul", "com1.txt")
/// into plain names. The system then takes every name as it is, so the rules for names are here.

/// The path in full as text/WindowsPath.h has it, from the drive of the process's current folder.
String FullPath(StringView path);

/// What is handed to the system: the path in full, without trailing points and blanks of its names,
/// which do not matter, and without a trailing separator. Nothing for a path that can name nothing:
/// the empty one, a server without a share, and one that holds a wildcard, a colon behind the drive
/// (another stream of a file) or another character that no name has.
std::optional<String> ToSystemPath(StringView path);

/// True for a name on the disk that a path can reach: trailing points and blanks would be dropped.
bool IsReachableName(StringView name);

/// The usual form of a path that the system has told, with the mark or without it.
String FromSystemPath(StringView path);

/// `GetSystemDirectoryW`, with a trailing backslash.
String SystemFolderPath();

}  // namespace norvo
