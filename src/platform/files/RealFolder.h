#pragma once

#include <filesystem>
#include <string>

namespace norvo {

/// The path in full with all links resolved, as far as there is something.
std::string RealAsFarAsThere(const std::filesystem::path& path);

}  // namespace norvo
