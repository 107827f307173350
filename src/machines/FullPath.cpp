#include "machines/FullPath.h"

#include <algorithm>

#include "machines/ThisPc.h"
#include "platform/files/DiskPath.h"
#include "platform/files/RealFolder.h"
#include "text/Encoding.h"
#include "text/Text.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

bool IsSameName(const fs::path& left, const fs::path& right) {
  const auto text = [](const fs::path& name) { return FromUtf8Lossy(ToDiskPath(name)); };
  return left == right || (IsThisPcAMachine() && EqualsIgnoreCase(text(left), text(right)));
}

}  // namespace

fs::path FullPath(const fs::path& path) {
  const fs::path full = ToSystemPath(RealAsFarAsThere(FullSystemPath(path).lexically_normal()));
  return full.has_filename() ? full : full.parent_path();
}

bool LiesWithin(const fs::path& path, const fs::path& folder) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end(), IsSameName);
  return reached == folder.end();
}

}  // namespace norvo
