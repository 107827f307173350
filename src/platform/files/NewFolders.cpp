#include "platform/files/NewFolders.h"

#include <algorithm>
#include <utility>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"

namespace norvo {

namespace fs = std::filesystem;

namespace {

bool IsFolderIn(const SystemFile& root, const std::string& path) {
  const FileResult<FileRecord> record = LookUp(root, path);
  return record && record->kind == FileRecord::Kind::Folder;
}

}  // namespace

FileResult<WayToFolder> WayTo(const fs::path& path) {
  WayToFolder way;
  fs::path at = FullSystemPath(path).lexically_normal();
  if (!at.has_filename()) at = at.parent_path();
  for (;; at = at.parent_path()) {
    FileResult<SystemFile> folder = OpenRoot(ToDiskPath(at));
    if (folder) {
      way.nearest = std::move(*folder);
      std::reverse(way.missing.begin(), way.missing.end());
      return way;
    }
    const bool isTop = at == at.parent_path();
    if (isTop || folder.Failure().kind != FileFailure::Kind::NotFound) return folder.Failure();
    way.missing.push_back(ToDiskPath(at.filename()));
  }
}

FileFailure MakeFolders(const fs::path& path) {
  const FileResult<WayToFolder> way = WayTo(path);
  if (!way) return way.Failure();
  std::string folder;
  for (const std::string& name : way->missing) {
    folder = JoinDiskPath(folder, name);
    const FileFailure failure = MakeFolder(way->nearest, folder);
    // Somebody else may have made it by now.
    if (failure && !IsFolderIn(way->nearest, folder)) return failure;
  }
  return {};
}

}  // namespace norvo
