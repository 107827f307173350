#include "machines/OldMachine.h"

#include <optional>

#include "machines/LinkedMachine.h"
#include "machines/MachineFolder.h"
#include "move/Setup.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

void CheckFolder(const fs::path& folder) {
  std::error_code failure;
  if (fs::is_directory(folder, failure)) return;
  throw HostError(folder.string() +
                  " is no folder. Name the old machine's folder, or the folder where its disk is "
                  "mounted, with --from.");
}

/// Makes a machine of the drives and one more, and gives the letter of the latter.
char16_t Surround(const fs::path& from, const fs::path& work) {
  std::error_code failure;
  fs::create_directories(work, failure);
  if (failure) {
    throw HostError(work.string() + ": " + failure.message() + ". Choose another --work.");
  }
  LinkedMachine machine(work);
  char16_t own = u'Z';
  if (IsSurelyMachine(from)) {
    const MachineLayout layout(HostedPlatform(from).DriveFolders());
    for (const HostedDrive& drive : layout.Drives()) {
      machine.AddDrive(drive.letter, drive.type, drive.folder);
    }
    const std::optional<char16_t> letter = layout.FreeLetter();
    if (!letter) throw HostError(from.string() + " has no free drive letter. Leave --work out.");
    own = *letter;
  } else {
    machine.AddDrive(u'C', DriveType::Fixed, from);
  }
  machine.AddOwnDrive(own);
  machine.Finish();
  return own;
}

}  // namespace

OldMachine::OldMachine(const std::string& from, const std::string& work, Console& console) {
  CheckFolder(from);
  readOnly_ = !work.empty() || !IsSurelyMachine(from);
  SetupWishes wishes;
  fs::path folder = from;
  if (readOnly_) {
    if (work.empty()) temp_ = std::make_unique<TempFolder>();
    folder = work.empty() ? temp_->Path() : fs::path(work);
    wishes.groupRoot = ToUtf8(String(1, Surround(from, folder))) + ":\\Norvo Media\\";
  }
  folder_ = std::make_shared<FolderMachine>(folder);
  machine_ = std::make_unique<Machine>(folder_, console);
  SetUp(machine_->Library(), wishes, console);
  settings_ = RequireSettings(machine_->Library());
}

}  // namespace norvo
