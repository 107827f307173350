#include "host/migrate/OldMachine.h"

#include <cctype>
#include <optional>

#include "host/LinkedMachine.h"
#include "host/Setup.h"
#include "text/Encoding.h"

namespace norvo::host {
namespace {

namespace fs = std::filesystem;

bool IsDriveName(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.size() == 1 && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

/// True for a folder with a machine's own files, or with drives and nothing else in it but hidden
/// files, such as one that a stopped run has left. A disk's root may hold a folder "A" too, but
/// beside others.
bool IsMachineFolder(const fs::path& folder) {
  std::error_code failure;
  if (fs::exists(folder / "machine.ini", failure) || fs::exists(folder / "registry.reg", failure)) {
    return true;
  }
  bool hasDrive = false;
  for (fs::directory_iterator at(folder, failure), end; at != end; at.increment(failure)) {
    if (at->path().filename().string().front() == '.') continue;
    if (!at->is_directory(failure) || !IsDriveName(at->path())) return false;
    hasDrive = true;
  }
  if (failure) throw HostError(folder.string() + ": " + failure.message());
  return hasDrive;
}

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
  if (failure)
    throw HostError(work.string() + ": " + failure.message() + ". Choose another --work.");
  LinkedMachine machine(work);
  char16_t own = u'Z';
  if (IsMachineFolder(from)) {
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
  readOnly_ = !work.empty() || !IsMachineFolder(from);
  SetupWishes wishes;
  fs::path folder = from;
  if (readOnly_) {
    if (work.empty()) temp_ = std::make_unique<TempFolder>();
    folder = work.empty() ? temp_->Path() : fs::path(work);
    wishes.groupRoot = ToUtf8(String(1, Surround(from, folder))) + ":\\Norvo Media\\";
  }
  machine_ = std::make_unique<Machine>(folder, console);
  SetUp(machine_->Library(), wishes, console);
  settings_ = RequireSettings(machine_->Library());
}

}  // namespace norvo::host
