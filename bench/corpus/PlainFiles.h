#pragma once

#include <cstddef>
#include <filesystem>

namespace norvo::bench {

/**
 * Writes empty files that are no playlists below the drive's Data folder: a hundred in each
 * folder of the deepest level, the folders nested as deep as asked.
 */
void WritePlainFiles(const std::filesystem::path& drive, std::size_t count, std::size_t depth);

}  // namespace norvo::bench
