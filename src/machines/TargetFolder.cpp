#include "machines/TargetFolder.h"

#include <system_error>

#include "machines/MachineFolder.h"
#include "move/MoveError.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

void MakeDrive(const fs::path& folder) {
  std::error_code failure;
  fs::create_directories(folder / "C", failure);
  if (failure) throw MoveError(MoveFault::MachineNotMade, folder.string(), failure.message());
}

}  // namespace

TargetFolder::TargetFolder(const fs::path& to, bool dryRun) : machine_(OpenIfMachine(to)) {
  if (machine_) return;
  fs::path folder = to;
  if (dryRun) {
    temporary_ = std::make_unique<TemporaryFolder>();
    folder = temporary_->Path();
  }
  MakeDrive(folder);
  machine_ = OpenMachineFolder(folder);
}

}  // namespace norvo
