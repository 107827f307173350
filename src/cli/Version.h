#pragma once

#include <string>

namespace norvo::cli {

/// "norvo-playlists 1.2.3 (1a2b3c4d5e, Linux x86_64)": version, commit and platform of the build;
/// no commit where it was built from sources outside their repository.
std::string VersionText();

}  // namespace norvo::cli
