#include "machines/TargetFolder.h"

#include <system_error>
#include <utility>

#include "move/MoveError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FailureText.h"
#include "platform/files/NewFolders.h"
#include "platform/files/SystemCalls.h"
#include "platform/hosted/SystemPaths.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

void RequireMade(const TakenFolder& taken, FileFailure failure) {
  if (!failure) return;
  throw MoveError(MoveFault::MachineNotMade, ShownPath(taken.folder), ToUtf8(FailureText(failure)));
}

bool IsThere(const TakenFolder& taken) {
  std::error_code ignored;
  return taken.IsMachine() || fs::is_directory(taken.driveFolder, ignored);
}

/// Of the disk that holds the nearest of a path's folders that there is.
std::optional<std::uint64_t> FreeBytesAbove(const fs::path& path) {
  const FileResult<WayToFolder> way = WayTo(path);
  return way ? FreeBytes(way->nearest) : std::nullopt;
}

}  // namespace

LayoutWishes WishesFor(const FolderMove& folders) {
  return {folders.user, folders.documents, folders.groupRoot};
}

TargetFolder::TargetFolder(const FolderMove& folders, bool dryRun)
    : taken_(folders.IsToThisPc() ? TakeThisPc() : TakeFolder(folders.to, folders.toDrive)) {
  if (folders.IsToThisPc()) {
    OpenPc(folders);
  } else {
    OpenFolder(folders, dryRun);
  }
}

void TargetFolder::OpenPc(const FolderMove& folders) {
  if (!folders.toDrive.empty() || !folders.user.empty() || !folders.documents.empty()) {
    throw MoveError(MoveFault::FolderWishes);
  }
  pc_ = OpenThisPc();
  disks_ = pc_->Disks();
  machine_ = pc_->Machine();
  usualGroupRoot_ = UsualGroupRootOf(*machine_);
}

void TargetFolder::OpenFolder(const FolderMove& folders, bool dryRun) {
  TakenFolder used = taken_;
  const bool isThere = IsThere(taken_);
  if (!isThere && dryRun) {
    RequireMade(taken_, WayTo(taken_.driveFolder).Failure());
    temporary_ = std::make_unique<TemporaryFolder>();
    used.driveFolder = temporary_->Path();
  }
  FolderLayout folder = LayOut(used, WishesFor(folders));
  if (!isThere) RequireMade(used, MakeFolders(used.driveFolder));
  usualGroupRoot_ = std::move(folder.usualGroupRoot);
  registry_ = {folder.layout.registryFile, std::move(folder.registryPath)};
  disks_ = std::make_shared<HostedPlatform>(std::move(folder.layout));
  machine_ = disks_;
}

std::optional<std::uint64_t> TargetFolder::FreeBytesAt(StringView path) const {
  // Where a passing folder stands for the machine, that is not on its disk.
  return FreeBytesAbove(temporary_ ? taken_.driveFolder
                                   : PathOnSystem(disks_->DriveFolders(), path));
}

fs::path TargetFolder::SharedFolder() const {
  return pc_ ? LockFolderOf(*pc_->Machine()) : registry_.file.parent_path();
}

void TargetFolder::SetMessageDialog(MessageDialog& messages) {
  if (pc_) return pc_->SetMessageDialog(messages);
  disks_->SetMessageDialog(messages);
}

}  // namespace norvo
