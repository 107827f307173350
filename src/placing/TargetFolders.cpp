#include "placing/TargetFolders.h"

#include <functional>
#include <string_view>
#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/files/FileError.h"
#include "platform/files/SystemCalls.h"
#include "platform/hosted/DiskName.h"
#include "platform/hosted/HostedFileSystem.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// No disk that we know takes longer ones. Those that take less say so when the file is made.
constexpr std::size_t kLongestName = 255;

std::uint64_t Mixed(std::uint64_t left, std::uint64_t right) {
  return (left ^ (left >> 29)) * 0x9e3779b97f4a7c15u + right;
}

/// The same for each path that leads to the folder.
std::uint64_t HashOf(const DrivePath& folder) {
  return Mixed(std::hash<std::string_view>()(folder.path), folder.drive->Letter());
}

}  // namespace

const DrivePath& TargetFolders::FolderOf(StringView path) {
  String parent(ParentFolder(path));
  const auto known = folders_.find(parent);
  if (known != folders_.end()) return known->second;
  DrivePath folder = files_.MakeFolderOf(path);
  if (read_.insert(HashOf(folder)).second) ReadNames(folder, path);
  return folders_.emplace(std::move(parent), std::move(folder)).first->second;
}

void TargetFolders::ReadNames(const DrivePath& folder, StringView path) {
  FileResult<SystemFile> opened = OpenBeneath(folder.drive->Root(), folder.path, OpenMode::List);
  const std::uint64_t seed = HashOf(folder);
  const auto add = [&](std::string_view name, ListedKind) {
    if (IsExpressible(name)) names_.insert(Mixed(seed, HashOfDiskName(name)));
  };
  const FileFailure failure = opened ? ForEachName(std::move(*opened), add) : opened.Failure();
  // Without its names another spelling of one of them could not be told from a new name.
  if (failure) RaiseFileError(failure, Subject::Folder, path);
}

TargetFolders::Answer TargetFolders::Take(StringView path) {
  const String absolute = files_.AbsolutePathName(path);
  const DrivePath& folder = FolderOf(absolute);
  const std::optional<std::string> name = ToDiskName(LastComponent(absolute));
  if (!name) RaiseFileError(FileFailure::Kind::InvalidName, Subject::File, path);
  if (name->size() > kLongestName) {
    RaiseFileError(FileFailure::Kind::NameTooLong, Subject::File, path);
  }
  const bool isNew = names_.insert(Mixed(HashOf(folder), HashOfDiskName(*name))).second;
  return {{folder.drive, JoinDiskPath(folder.path, *name)}, isNew};
}

}  // namespace norvo
