#include "machines/TargetFolder.h"

#include <system_error>
#include <utility>

#include "move/MoveError.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

void MakeDrive(const TakenFolder& taken) {
  std::error_code failure;
  fs::create_directories(taken.driveFolder, failure);
  if (!failure) return;
  throw MoveError(MoveFault::MachineNotMade, taken.folder.string(), failure.message());
}

bool IsThere(const TakenFolder& taken) {
  std::error_code ignored;
  return taken.IsMachine() || fs::is_directory(taken.driveFolder, ignored);
}

}  // namespace

LayoutWishes WishesFor(const FolderMove& folders) {
  return {folders.user, folders.documents, folders.groupRoot};
}

TargetFolder::TargetFolder(const FolderMove& folders, bool dryRun)
    : taken_(TakeFolder(folders.to, folders.toDrive)) {
  TakenFolder used = taken_;
  const bool isThere = IsThere(taken_);
  if (!isThere && dryRun) {
    temporary_ = std::make_unique<TemporaryFolder>();
    used.driveFolder = temporary_->Path();
  }
  FolderLayout folder = LayOut(used, WishesFor(folders));
  if (!isThere) MakeDrive(used);
  usualGroupRoot_ = std::move(folder.usualGroupRoot);
  registry_ = {folder.layout.registryFile, std::move(folder.registryPath)};
  machine_ = std::make_shared<HostedPlatform>(std::move(folder.layout));
}

}  // namespace norvo
