#include "platform/hosted/SystemPaths.h"

#include <algorithm>

#include "platform/hosted/DiskName.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

fs::path Canonical(const fs::path& path) {
  std::error_code failure;
  fs::path canonical = fs::canonical(path, failure);
  return failure ? path : canonical;
}

/// The name in a folder that is meant, in whatever case the disk spells it.
fs::path Step(const fs::path& folder, const String& name) {
  const fs::path exact = folder / ToUtf8(name);
  std::error_code ignored;
  if (fs::exists(exact, ignored)) return exact;
  for (fs::directory_iterator at(folder, ignored), end; at != end; at.increment(ignored)) {
    const std::optional<String> other = FromDiskName(at->path().filename().string());
    if (other && EqualsIgnoreCase(*other, name)) return at->path();
  }
  return exact;
}

/// The way from `folder` to `path`, as a Windows path without its drive.
std::optional<String> WayInto(const fs::path& folder, const fs::path& path) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end());
  if (reached != folder.end() || rest == path.end()) return std::nullopt;
  String way;
  for (auto part = rest; part != path.end(); ++part) {
    const std::optional<String> name = FromDiskName(part->string());
    if (!name) return std::nullopt;
    way += u'\\' + *name;
  }
  return way;
}

}  // namespace

fs::path PathOnSystem(std::span<const HostedDrive> drives, StringView machinePath) {
  for (const HostedDrive& drive : drives) {
    if (!EqualsIgnoreCase(DriveName(machinePath), String(1, drive.letter) + u":")) continue;
    fs::path path = drive.folder;
    for (std::size_t at = 2; at < machinePath.size();) {
      const std::size_t end = std::min(machinePath.find_first_of(u"\\/", at), machinePath.size());
      if (end > at) path = Step(path, String(machinePath.substr(at, end - at)));
      at = end + 1;
    }
    return path;
  }
  return {};
}

std::optional<String> PathOnMachine(std::span<const HostedDrive> drives,
                                    const fs::path& systemPath) {
  const fs::path path = Canonical(systemPath);
  std::optional<String> found;
  std::size_t deepest = 0;
  for (const HostedDrive& drive : drives) {
    const fs::path folder = Canonical(drive.folder);
    const std::optional<String> way = WayInto(folder, path);
    const std::size_t depth = folder.string().size();
    if (!way || depth <= deepest) continue;
    deepest = depth;
    found = String(1, drive.letter) + u':' + *way;
  }
  return found;
}

}  // namespace norvo
