#pragma once

#include <functional>
#include <string_view>

#include "platform/files/SystemFile.h"
#include "text/Text.h"

namespace norvo {

/// True for the name of a playlist of a kind that `ForEachReference` sees through; also for a name
/// as the disk has it.
bool NamesPlaylist(StringView name);
bool NamesPlaylist(std::string_view name);

/// Guesses, line by line and without any care, what an open playlist could refer to: an M3U's
/// lines, a PLS's files, the first text in quotation marks of what has angle brackets. Much of it
/// may be no reference at all. Ends when `visit` gives false, with the file, or with a line that is
/// too long for a path.
void ForEachReference(const SystemFile& playlist,
                      const std::function<bool(std::string_view reference)>& visit);

/// The full path of a file on a drive that a reference in a playlist of that folder means; empty
/// when it means none. `folder` ends with a separator.
String ReferencedPath(std::string_view reference, StringView folder);

}  // namespace norvo
