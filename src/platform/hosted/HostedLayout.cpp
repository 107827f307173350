#include "platform/hosted/HostedLayout.h"

#include <utility>

#include "automation/RunTimeError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FileBytes.h"
#include "platform/files/FileError.h"
#include "platform/hosted/MachineSettings.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

// Drives and shell folders fill a few hundred lines at most. What is much larger was put there by
// mistake, and would be held in memory as a whole.
constexpr std::size_t kMostSettingsBytes = std::size_t{1024} * 1024;

constexpr const char* kSettingsFile = "machine.ini";

String Shown(const fs::path& path) {
  return FromUtf8Lossy(ToDiskPath(path));
}

bool IsListed(const fs::path& path) {
  const FileResult<SystemFile> folder = OpenRoot(ToDiskPath(path.parent_path()));
  if (!folder) return false;
  FileResult<SystemFile> listed = OpenBeneath(*folder, {}, OpenMode::List);
  if (!listed) return false;
  const std::string wanted = ToDiskPath(path.filename());
  bool found = false;
  ForEachName(std::move(*listed),
              [&](std::string_view name, ListedKind) { found = found || name == wanted; });
  return found;
}

/// A folder that is there and cannot be opened, such as one where a dead disk is mounted, counts as
/// one: who lists it hears what is wrong with it.
bool IsFolder(const fs::path& path) {
  const FileResult<SystemFile> folder = OpenRoot(ToDiskPath(path));
  const FileFailure::Kind failure = folder.Failure().kind;
  if (failure == FileFailure::Kind::NotFound || failure == FileFailure::Kind::NotAFolder) {
    return false;
  }
  return folder || IsListed(path);
}

/// The folder of a drive in the machine's folder; the upper-case spelling goes before the other.
fs::path DefaultFolder(const fs::path& machineFolder, char upper) {
  const fs::path folder = machineFolder / std::string(1, upper);
  const fs::path lower = machineFolder / std::string(1, static_cast<char>(upper + 32));
  return !IsFolder(folder) && IsFolder(lower) ? lower : folder;
}

bool HasDriveFolder(const fs::path& machineFolder) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (IsFolder(DefaultFolder(machineFolder, letter))) return true;
  }
  return false;
}

[[noreturn]] void RaiseNoMachine(const fs::path& folder, StringView reason) {
  throw RunTimeError(error::kPathNotFound, String(DescriptionOf(error::kPathNotFound)) + u": " +
                                               Shown(folder) + String(reason));
}

fs::path CheckedFolder(const fs::path& folder) {
  if (!OpenRoot(ToDiskPath(folder))) RaiseNoMachine(folder, u" is no folder");
  const bool hasSettings = bool(RealPath(ToDiskPath(folder / kSettingsFile)));
  if (!hasSettings && !HasDriveFolder(folder)) {
    RaiseNoMachine(folder, u" holds neither machine.ini nor a drive's folder");
  }
  return FullSystemPath(folder);
}

std::vector<HostedDrive> DrivesThere(const fs::path& machineFolder) {
  std::vector<HostedDrive> drives;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (fs::path folder = DefaultFolder(machineFolder, letter); IsFolder(folder)) {
      drives.push_back({static_cast<char16_t>(letter), DriveType::Fixed, std::move(folder)});
    }
  }
  return drives;
}

std::vector<HostedDrive> DrivesAsTold(const fs::path& machineFolder,
                                      const std::vector<MachineSettings::Drive>& told) {
  std::vector<HostedDrive> drives;
  for (const MachineSettings::Drive& drive : told) {
    fs::path folder = drive.folder.empty()
                          ? DefaultFolder(machineFolder, static_cast<char>(drive.letter))
                          : machineFolder / ToSystemPath(ToUtf8(drive.folder));
    drives.push_back({drive.letter, drive.type, std::move(folder)});
  }
  return drives;
}

}  // namespace

std::string MachineSettingsIn(const fs::path& machineFolder) {
  const fs::path path = machineFolder / kSettingsFile;
  const FileResult<SystemFile> file = OpenSystemPath(ToDiskPath(path));
  const FileFailure::Kind failure = file.Failure().kind;
  if (failure == FileFailure::Kind::NotFound || failure == FileFailure::Kind::NotAFolder) return {};
  if (!file) RaiseFileError(file.Failure(), Subject::File, Shown(path));
  FileResult<std::string> bytes = ReadWhole(*file, kMostSettingsBytes);
  const bool isNoFile = bytes.Failure().kind == FileFailure::Kind::NotAFile;
  if (isNoFile) RaiseFileError(bytes.Failure(), Subject::File, Shown(path) + u" is no file");
  if (!bytes) RaiseFileError(bytes.Failure(), Subject::File, Shown(path));
  return std::move(*bytes);
}

HostedLayout ReadLayout(const fs::path& machineFolder) {
  const fs::path folder = CheckedFolder(machineFolder);
  MachineSettings settings = ReadMachineSettings(MachineSettingsIn(folder));
  HostedLayout layout;
  layout.drives = settings.drives ? DrivesAsTold(folder, *settings.drives) : DrivesThere(folder);
  layout.registryFile = folder / "registry.reg";
  layout.shellFolders = std::move(settings.shellFolders);
  layout.warnings = std::move(settings.warnings);
  return layout;
}

}  // namespace norvo
