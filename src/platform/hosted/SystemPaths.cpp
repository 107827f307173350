#include "platform/hosted/SystemPaths.h"

#include <algorithm>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/hosted/DiskName.h"
#include "platform/hosted/FolderListing.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

fs::path Canonical(const fs::path& path) {
  const FileResult<std::string> real = RealPath(ToDiskPath(path));
  return real ? ToSystemPath(*real) : path;
}

/// The name in a folder that is meant, in whatever case the disk spells it.
std::string Spelled(const SystemFile& folder, const String& name) {
  const std::string exact = ToUtf8(name);
  if (LookUp(folder, exact)) return exact;
  FileResult<SystemFile> listed = OpenBeneath(folder, {}, OpenMode::List);
  if (!listed) return exact;
  const std::optional<FolderListing> listing = FolderListing::Of(std::move(*listed));
  const std::string_view other = listing ? listing->Find(name) : std::string_view();
  return other.empty() ? exact : std::string(other);
}

fs::path Step(const fs::path& folder, const String& name) {
  const FileResult<SystemFile> opened = OpenRoot(ToDiskPath(folder));
  return folder / ToSystemPath(opened ? Spelled(*opened, name) : ToUtf8(name));
}

/// The way from `folder` to `path`, as a Windows path without its drive.
std::optional<String> WayInto(const fs::path& folder, const fs::path& path) {
  const auto [rest, reached] =
      std::mismatch(path.begin(), path.end(), folder.begin(), folder.end());
  if (reached != folder.end() || rest == path.end()) return std::nullopt;
  String way;
  for (auto part = rest; part != path.end(); ++part) {
    const std::optional<String> name = FromDiskName(ToDiskPath(*part));
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
