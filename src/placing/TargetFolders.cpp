#include "placing/TargetFolders.h"

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

/// The same for each path that leads to the folder.
Fingerprint PrintOf(const DrivePath& folder) {
  const char16_t letter = folder.drive->Letter();
  return FingerprintOf({FingerprintOf(StringView(&letter, 1)), FingerprintOf(folder.path)});
}

/// Of a name in that folder.
Fingerprint PrintOf(const Fingerprint& folder, std::string_view name) {
  return FingerprintOf({folder, FingerprintOfDiskName(name)});
}

}  // namespace

const TargetFolders::Folder& TargetFolders::FolderOf(StringView path) {
  String parent(ParentFolder(path));
  const auto known = folders_.find(parent);
  if (known != folders_.end()) return known->second;
  Folder folder{files_.MakeFolderOf(path), {}};
  folder.print = PrintOf(folder.path);
  if (read_.Insert(folder.print)) ReadNames(folder, path);
  return folders_.emplace(std::move(parent), std::move(folder)).first->second;
}

bool TargetFolders::TakeName(const Folder& folder, std::string_view name) {
  return names_.Insert(PrintOf(folder.print, name));
}

bool TargetFolders::MayHaveHeld(const DrivePath& file) const {
  const Fingerprint folder = PrintOf(DrivePath{file.drive, std::string(ParentOf(file.path))});
  return !read_.Has(folder) || names_.Has(PrintOf(folder, LeafOf(file.path)));
}

void TargetFolders::ReadNames(const Folder& folder, StringView path) {
  const DrivePath& there = folder.path;
  FileResult<SystemFile> opened = OpenBeneath(there.drive->Root(), there.path, OpenMode::List);
  const auto add = [&](std::string_view name, ListedKind) {
    if (IsExpressible(name)) TakeName(folder, name);
  };
  const FileFailure failure = opened ? ForEachName(std::move(*opened), add) : opened.Failure();
  // Without its names another spelling of one of them could not be told from a new name.
  if (failure) RaiseFileError(failure, Subject::Folder, path);
}

TargetFolders::Answer TargetFolders::Take(StringView path) {
  const String absolute = files_.AbsolutePathName(path);
  const Folder& folder = FolderOf(absolute);
  const std::optional<std::string> name = ToDiskName(LastComponent(absolute));
  if (!name) RaiseFileError(FileFailure::Kind::InvalidName, Subject::File, path);
  if (name->size() > kLongestName) {
    RaiseFileError(FileFailure::Kind::NameTooLong, Subject::File, path);
  }
  const bool isNew = TakeName(folder, *name);
  return {{folder.path.drive, JoinDiskPath(folder.path.path, *name)}, isNew};
}

}  // namespace norvo
