#include "machines/NewMachine.h"

#include <filesystem>
#include <system_error>

#include "library/Library.h"
#include "machines/MachineFolder.h"
#include "move/Setup.h"
#include "services/Utility.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

void MakeDrive(const fs::path& folder) {
  std::error_code failure;
  fs::create_directories(folder / "C", failure);
  if (failure) {
    throw HostError(folder.string() + " cannot be made a machine: " + failure.message() +
                    ". Name a folder that can be written with --to.");
  }
}

/// A machine that has a role already keeps it.
SetupWishes Wishes(Component& library) {
  SetupWishes wishes;
  if (!ReadSettings(library).role) wishes.role = Utility::role::kDestination;
  return wishes;
}

}  // namespace

NewMachine::NewMachine(const std::string& to, bool trial, Console& console) : trial_(trial) {
  fs::path folder = to;
  if (!OpenIfMachine(folder)) {
    if (trial) {
      temp_ = std::make_unique<TempFolder>();
      folder = temp_->Path();
    }
    MakeDrive(folder);
  }
  folder_ = std::make_shared<FolderMachine>(folder);
  machine_ = std::make_unique<Machine>(folder_, console);
  if (!trial) SetUp(machine_->Library(), Wishes(machine_->Library()), console);
  plan_ = std::make_shared<OverlayPlatform>(machine_->Platform());
  planLibrary_ = OpenLibrary(plan_);
  if (trial) SetUp(*planLibrary_, Wishes(*planLibrary_), console);
  settings_ = RequireSettings(*planLibrary_);
}

}  // namespace norvo
