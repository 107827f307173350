#pragma once

#include <filesystem>
#include <vector>

#include "PlaylistFolder.h"

namespace norvo::bench {

/** Writes the list file of the machine, as a scan that found these playlists would leave it. */
void WriteListFile(const std::filesystem::path& machine, const std::vector<PlaylistFile>& files);

}  // namespace norvo::bench
