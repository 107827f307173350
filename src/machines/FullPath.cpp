#include "machines/FullPath.h"

#include <algorithm>

namespace norvo {

namespace fs = std::filesystem;

fs::path FullPath(const fs::path& path) {
  const fs::path full = fs::weakly_canonical(path);
  return full.has_filename() ? full : full.parent_path();
}

bool LiesWithin(const fs::path& path, const fs::path& folder) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end());
  return reached == folder.end();
}

}  // namespace norvo
