#include "platform/files/RealFolder.h"

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"

namespace norvo {

std::string RealAsFarAsThere(const std::filesystem::path& path) {
  const FileResult<std::string> real = RealPath(ToDiskPath(path));
  if (real) return *real;
  const std::filesystem::path parent = path.parent_path();
  if (parent == path || real.Failure().kind != FileFailure::Kind::NotFound) return ToDiskPath(path);
  const std::filesystem::path folder = ToSystemPath(RealAsFarAsThere(parent));
  return ToDiskPath((folder / path.filename()).lexically_normal());
}

}  // namespace norvo
