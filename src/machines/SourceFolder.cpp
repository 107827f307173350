#include "machines/SourceFolder.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>

#include "machines/FolderLayout.h"
#include "machines/FoldersApart.h"
#include "machines/FullPath.h"
#include "machines/MachineFolder.h"
#include "machines/SparedMachine.h"
#include "machines/TemporaryFolder.h"
#include "move/MoveError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FailureText.h"
#include "platform/files/NewFolders.h"
#include "platform/files/SystemCalls.h"
#include "platform/files/TemporaryFile.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

constexpr unsigned kOwner = 0600;

TakenFolder TakeSource(const fs::path& from) {
  TakenFolder taken = TakeFolder(from);
  if (taken.kind == TakenFolder::Kind::Missing) {
    throw MoveError(MoveFault::NoFolder, ShownPath(from));
  }
  if (taken.kind == TakenFolder::Kind::Empty) {
    throw MoveError(MoveFault::EmptyFolder, ShownPath(from));
  }
  return taken;
}

/// What this PC calls the folders that are written to.
std::vector<String> TargetsOnPc(const FolderMove& folders) {
  std::vector<String> paths;
  for (const fs::path& folder : WrittenFolders(folders)) {
    String& path = paths.emplace_back(FromUtf8Lossy(ToDiskPath(FullPath(folder))));
    std::replace(path.begin(), path.end(), u'/', u'\\');
  }
  return paths;
}

bool HasDrive(const std::vector<HostedDrive>& drives, char16_t letter) {
  return std::any_of(drives.begin(), drives.end(),
                     [letter](const HostedDrive& drive) { return drive.letter == letter; });
}

/// The drives that are read, by a machine's own description or as disks.
std::vector<HostedDrive> DrivesOf(const TakenFolder& from, const std::vector<OtherDrive>& others) {
  if (from.IsMachine()) return ReadLayout(from.folder).drives;
  std::vector<HostedDrive> drives{{u'C', DriveType::Fixed, from.folder}};
  for (const OtherDrive& other : others) {
    const char16_t letter = DriveLetterOf(other.letter);
    if (HasDrive(drives, letter)) throw MoveError(MoveFault::DriveTwice, other.letter);
    std::error_code ignored;
    if (!fs::is_directory(other.folder, ignored)) {
      throw MoveError(MoveFault::NoDriveFolder, ShownPath(other.folder), other.letter);
    }
    drives.push_back({letter, DriveType::Fixed, other.folder});
  }
  return drives;
}

/// True for a machine whose drive C is a disk that stands elsewhere, unless it was decided before
/// where its data go: nothing may be written to an old disk.
bool HasDiskElsewhere(const TakenFolder& from) {
  const FolderLayout folder = LayOut(from);
  if (!folder.groupRoot.empty()) return false;
  const std::vector<HostedDrive>& drives = folder.layout.drives;
  return std::any_of(drives.begin(), drives.end(), [&from](const HostedDrive& drive) {
    return drive.letter == u'C' && !LiesWithin(FullPath(drive.folder), FullPath(from.folder));
  });
}

/// A folder of somebody else's, or on a disk that is protected.
bool CannotBeWritten(const fs::path& folder) {
  const FileResult<SystemFile> root = OpenRoot(ToDiskPath(folder));
  if (!root) return false;  // which is told when its machine is opened
  const std::string probe = TemporaryPath("probe");
  const FileResult<SystemFile> file = CreateTemporary(*root, probe, kOwner);
  if (file) RemoveFile(*root, probe);
  const FileFailure::Kind failure = file.Failure().kind;
  return failure == FileFailure::Kind::ReadOnlyDisk || failure == FileFailure::Kind::AccessDenied;
}

/// Whether nothing is written to the machine, in which the product's data would stand else.
bool IsSpared(const FolderMove& folders, const TakenFolder& from) {
  if (!folders.work.empty() || !from.IsMachine()) return true;
  return HasDiskElsewhere(from) || CannotBeWritten(from.folder);
}

/// A letter that no drive has; nothing when all are taken.
std::optional<char16_t> FreeLetter(const std::vector<HostedDrive>& drives) {
  for (char16_t letter = u'Z'; letter >= u'C'; --letter) {
    if (!HasDrive(drives, letter)) return letter;
  }
  return std::nullopt;
}

/// An earlier version of this program made a machine of the work folder, by links to the drives;
/// this was the first line of its settings.
constexpr std::string_view kOldMark = "; Made anew by each run of norvo-playlists.";

/// True for a folder that holds a machine which is not the leaving of an earlier run. What a stop
/// has left of the old settings tells of no machine, like any other text.
bool HoldsOtherMachine(const fs::path& work, char16_t own) {
  if (HasMachineSettings(work)) return !MachineSettingsText(work).starts_with(kOldMark);
  for (char16_t letter = u'C'; letter <= u'Z'; ++letter) {
    const fs::path drive = work / std::string(1, static_cast<char>(letter));
    if (letter != own && fs::is_directory(fs::symlink_status(drive))) return true;
  }
  return false;
}

/// Makes the work folder, with the folder of the drive that takes the product's data.
void MakeWork(const fs::path& work, char16_t own) {
  const auto make = [](const fs::path& folder) {
    const FileFailure failure = MakeFolders(folder);
    if (!failure) return;
    throw MoveError(MoveFault::WorkNotCreated, ShownPath(folder), ToUtf8(FailureText(failure)));
  };
  make(work);
  if (HoldsOtherMachine(work, own)) throw MoveError(MoveFault::WorkTaken, ShownPath(work));
  make(work / std::string(1, static_cast<char>(own)));
}

/// A machine that holds its temporary folder: Windows removes none that somebody has open.
std::shared_ptr<HostedPlatform> MachineIn(std::unique_ptr<TemporaryFolder> folder,
                                          HostedLayout layout) {
  struct Passing {
    Passing(std::unique_ptr<TemporaryFolder> folder, HostedLayout layout)
        : folder_(std::move(folder)), machine_(std::move(layout)) {}
    std::unique_ptr<TemporaryFolder> folder_;  // goes last
    HostedPlatform machine_;
  };
  const auto passing = std::make_shared<Passing>(std::move(folder), std::move(layout));
  return {passing, &passing->machine_};
}

}  // namespace

SourceFolder::SourceFolder(const FolderMove& folders)
    : taken_(folders.IsFromThisPc() ? TakeThisPc() : TakeSource(folders.from)),
      readOnly_(IsSpared(folders, taken_)) {
  const bool hasOwnDrives = folders.IsFromThisPc() || taken_.IsMachine();
  if (hasOwnDrives && !folders.fromDrives.empty()) throw MoveError(MoveFault::DrivesTold);
  if (folders.IsFromThisPc()) {
    OpenPc(folders);
  } else if (readOnly_) {
    Spare(folders);
  } else {
    OpenFolder(folders);
  }
}

void SourceFolder::OpenPc(const FolderMove& folders) {
  if (!folders.work.empty()) throw MoveError(MoveFault::WorkUnneeded);
  pc_ = OpenThisPc();
  disks_ = pc_->Disks();
  machine_ = SparedMachine(pc_->Machine(), TargetsOnPc(folders));
}

void SourceFolder::OpenFolder(const FolderMove& folders) {
  disks_ = OpenMachineFolder(folders.from);
  machine_ = disks_;
  shared_ = ReadLayout(folders.from).registryFile.parent_path();
}

void SourceFolder::Spare(const FolderMove& folders) {
  std::unique_ptr<TemporaryFolder> temporary;
  if (folders.work.empty()) temporary = std::make_unique<TemporaryFolder>();
  isTemporary_ = temporary != nullptr;
  const fs::path folder = isTemporary_ ? temporary->Path() : folders.work;
  HostedLayout layout;
  layout.drives = DrivesOf(taken_, folders.fromDrives);
  const std::optional<char16_t> letter = FreeLetter(layout.drives);
  if (!letter) throw MoveError(MoveFault::NoFreeLetter, ShownPath(folders.from));
  MakeWork(folder, *letter);
  shared_ = folders.work;
  const std::string name(1, static_cast<char>(*letter));
  layout.drives.push_back({*letter, DriveType::Fixed, folder / name});
  layout.registryFile = folder / "registry.reg";
  layout.shellFolders[ShellFolders::kDocuments] = String(1, *letter) + u":\\My Documents";
  groupRoot_ = name + ":\\Norvo Media\\";
  disks_ = MachineIn(std::move(temporary), std::move(layout));
  machine_ = disks_;
}

void SourceFolder::SetMessageDialog(MessageDialog& messages) {
  if (pc_) return pc_->SetMessageDialog(messages);
  disks_->SetMessageDialog(messages);
}

}  // namespace norvo
