#include "platform/hosted/TargetFolders.h"

#include <fcntl.h>

#include <cerrno>
#include <climits>
#include <functional>
#include <string_view>
#include <utility>

#include "platform/hosted/FolderListing.h"
#include "platform/hosted/HostName.h"
#include "platform/hosted/HostedFileSystem.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

std::uint64_t Mixed(std::uint64_t left, std::uint64_t right) {
  return (left ^ (left >> 29)) * 0x9e3779b97f4a7c15u + right;
}

/// The same for each path that leads to the folder.
std::uint64_t HashOf(const HostPlace& folder) {
  return Mixed(std::hash<std::string_view>()(folder.path), folder.drive->Letter());
}

}  // namespace

const HostPlace& TargetFolders::FolderOf(StringView path) {
  String parent(ParentFolder(path));
  const auto known = folders_.find(parent);
  if (known != folders_.end()) return known->second;
  HostPlace folder = files_.MakeFolderOf(path);
  if (read_.insert(HashOf(folder)).second) ReadNames(folder, path);
  return folders_.emplace(std::move(parent), std::move(folder)).first->second;
}

void TargetFolders::ReadNames(const HostPlace& folder, StringView path) {
  HostFile opened = OpenInside(folder.drive->Root(), folder.path, O_RDONLY | O_DIRECTORY);
  const std::uint64_t seed = HashOf(folder);
  const bool whole =
      opened.IsOpen() && ForEachName(std::move(opened), [&](std::string_view name, ListedKind) {
        if (IsExpressible(name)) names_.insert(Mixed(seed, HashOfHostName(name)));
      });
  // Without its names another spelling of one of them could not be told from a new name.
  if (!whole) RaiseHostCallError(errno, Subject::Folder, path);
}

TargetFolders::Answer TargetFolders::Take(StringView path) {
  const String absolute = files_.AbsolutePathName(path);
  const HostPlace& folder = FolderOf(absolute);
  const std::optional<std::string> name = ToHostName(LastComponent(absolute));
  if (!name) RaiseHostCallError(EINVAL, Subject::File, path);
  if (name->size() > NAME_MAX) RaiseHostCallError(ENAMETOOLONG, Subject::File, path);
  const bool isNew = names_.insert(Mixed(HashOf(folder), HashOfHostName(*name))).second;
  return {{folder.drive, JoinHost(folder.path, *name)}, isNew};
}

}  // namespace norvo
