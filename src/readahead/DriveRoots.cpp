#include "readahead/DriveRoots.h"

#include <optional>
#include <string>

#include "platform/files/DiskPath.h"
#include "platform/hosted/DiskName.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// 0 for A, in either case.
std::size_t NumberOf(char16_t letter) {
  return static_cast<std::size_t>((letter | 0x20) - u'a');
}

/// The path without its drive, as the disk has it; nothing when a name in it can be none.
std::optional<std::string> OnDisk(StringView path) {
  constexpr std::size_t kDrive = 3;  // "C:\"
  std::string made;
  for (std::size_t at = kDrive; at < path.size();) {
    const std::size_t end = std::min(path.find(u'\\', at), path.size());
    const std::optional<std::string> name = ToDiskName(path.substr(at, end - at));
    if (!name) return std::nullopt;
    if (!made.empty()) made += '/';
    made += *name;
    at = end + 1;
  }
  return made;
}

}  // namespace

DriveRoots::DriveRoots(const std::vector<HostedDrive>& drives) {
  for (const HostedDrive& drive : drives) {
    FileResult<SystemFile> root = OpenRoot(ToDiskPath(drive.folder));
    if (root) roots_[NumberOf(drive.letter)] = std::move(*root);
  }
}

FileResult<SystemFile> DriveRoots::Open(StringView path, OpenMode mode) const {
  if (!HasDrive(path)) return FileFailure(FileFailure::Kind::NotFound);
  const SystemFile& root = roots_[NumberOf(path.front())];
  const std::optional<std::string> onDisk = OnDisk(path);
  if (!root.IsOpen() || !onDisk) return FileFailure(FileFailure::Kind::NotFound);
  return OpenBeneath(root, *onDisk, mode);
}

}  // namespace norvo
