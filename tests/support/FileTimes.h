#pragma once

#include <filesystem>

namespace norvo {

/// Lets a file or a folder have been written an hour ago.
void MakeOld(const std::filesystem::path& path);

}  // namespace norvo
