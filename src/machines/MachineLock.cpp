#include "machines/MachineLock.h"

#include <string>
#include <system_error>
#include <utility>

#include "move/MoveError.h"
#include "platform/files/DiskPath.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Hidden, and so no part of the machine.
constexpr const char* kName = ".norvo-playlists.lock";

}  // namespace

MachineLock::MachineLock(const fs::path& registryFolder, const LockWishes& wishes) {
  std::error_code ignored;
  if (fs::create_directory(registryFolder, ignored)) made_ = registryFolder;
  FileResult<SystemFile> opened = OpenRoot(ToDiskPath(registryFolder));
  if (!opened) return;
  lock_.emplace(std::move(*opened), kName);
  if (lock_->Take(false)) return;
  const std::string folder = ShownPath(registryFolder);
  if (!wishes.wait) throw MoveError(MoveFault::MachineBusy, folder, lock_->Holder());
  if (wishes.onWaiting) wishes.onWaiting(folder, lock_->Holder());
  lock_->Take(true);
}

MachineLock::~MachineLock() {
  lock_.reset();
  std::error_code ignored;
  if (!made_.empty()) fs::remove(made_, ignored);  // as it does with an empty one only
}

}  // namespace norvo
