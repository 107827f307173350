#pragma once

#include <filesystem>
#include <string_view>

namespace norvo::bench {

/** Writes the whole file anew; throws std::system_error when that fails. */
void WriteFile(const std::filesystem::path& path, std::string_view content);

/** Gives the file a fixed last-write time, so that two corpora of one seed are alike. */
void SetFixedDate(const std::filesystem::path& path);

}  // namespace norvo::bench
