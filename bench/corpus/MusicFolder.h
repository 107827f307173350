#pragma once

#include <filesystem>
#include <vector>

#include "Song.h"

namespace norvo::bench {

/** Writes every song below the drive's folder. */
void WriteMusicFolder(const std::filesystem::path& drive, const std::vector<Song>& songs);

}  // namespace norvo::bench
