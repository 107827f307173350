#pragma once

#include <vector>

#include "text/Text.h"

namespace norvo {

/// Rules of Windows path texts; nothing here looks at a disk. `\` and `/` both separate.

constexpr bool IsSeparator(char16_t unit) noexcept {
  return unit == u'\\' || unit == u'/';
}

/// True for a letter from A to Z, either case, followed by a colon.
bool HasDrive(StringView path) noexcept;

/// "C:" of a path with a drive, "\\server\share" of a share path, else the empty text.
StringView DriveName(StringView path) noexcept;

/// What follows the last separator; the whole text without one, empty after a trailing one.
StringView LastComponent(StringView path) noexcept;

/// The last component without its extension, which begins at its last point.
StringView BaseName(StringView path) noexcept;

/// What precedes the last separator, without it; a drive's root keeps its own ("C:\").
StringView ParentFolder(StringView path) noexcept;

/// The folders above a path, the outermost first, by its backslashes alone: "C:\a\b" lies in "C:\"
/// and "C:\a". Only the first keeps its backslash. The views point into `path`.
std::vector<StringView> FoldersAbove(StringView path);

/// The name without its trailing points and blanks, which do not matter.
StringView WithoutTrail(StringView name) noexcept;

/// True for a path that `AbsolutePath` gives back as it is: the usual case, told without a copy.
bool IsAbsolutePath(StringView path) noexcept;

/// The path in full: `/` turned into `\`, repeated separators joined, "." and ".." resolved (never
/// above the root), trailing points and blanks of the last component dropped, a trailing separator
/// kept. A path without a drive or share is taken from the root of `currentDrive` ("C:").
String AbsolutePath(StringView path, StringView currentDrive);

}  // namespace norvo
