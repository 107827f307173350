#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/files/FileFailure.h"
#include "platform/files/SystemFile.h"

namespace norvo {

/// A folder of the system that may not be there yet.
struct WayToFolder {
  SystemFile nearest;                ///< it, or the nearest above it that is there
  std::vector<std::string> missing;  ///< the names below that one, downward
};

/// Links are followed as far as there is something. A failure where a file stands in the way, or
/// the path's disk is not there.
FileResult<WayToFolder> WayTo(const std::filesystem::path& path);

/// Makes a folder with those above it that are missing; one that is there stays.
FileFailure MakeFolders(const std::filesystem::path& path);

}  // namespace norvo
