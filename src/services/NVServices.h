#pragma once

#include <cstdint>
#include <vector>

#include "services/Component.h"
#include "text/Text.h"

/// Path and file services. Every routine catches its own errors, logs them and returns a neutral
/// value, so that callers never see an exception from here.
namespace norvo::NVServices {

/// True when the folder exists, after creating it when asked to.
bool DoesPathExist(Component& component, StringView path, bool createIfMissing);

bool DoesFileExist(Component& component, StringView path);

/// The same question, with the file's facts in the same look-up.
std::optional<FileFacts> FactsOfFile(Component& component, StringView path);

/// Creates every missing folder of the chain, from the root outwards; true when the whole path
/// exists at the end. A level that fails is reported and the walk goes on.
bool CreatePath(Component& component, StringView path);

/// Path of a shell folder (such as `ShellFolders::kDocuments`) with a trailing backslash, created
/// when missing. Empty when it is not a folder on a drive or cannot be had.
String GetCSIDLPath(Component& component, std::int32_t identifier);

/// True, with `result` set, when the file has a version text.
bool GetFileVersionString(Component& component, StringView path, String& result);

/// The text before its first NUL character, trimmed of blanks.
StringView StripNull(StringView text);

/// Root of the group's migration data, or `result` as it was.
void GetSubGroupRoot(Component& component, StringView group, String& result);

/// All drives of the machine in letter order, ready or not; empty on an error.
std::vector<Drive> GetPartitionList(Component& component);

}  // namespace norvo::NVServices
