#include "machines/SourceFolder.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>

#include "machines/MachineFolder.h"
#include "move/MoveError.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

TakenFolder TakeSource(const fs::path& from) {
  TakenFolder taken = TakeFolder(from);
  if (taken.kind == TakenFolder::Kind::Missing) {
    throw MoveError(MoveFault::NoFolder, from.string());
  }
  if (taken.kind == TakenFolder::Kind::Empty) {
    throw MoveError(MoveFault::EmptyFolder, from.string());
  }
  return taken;
}

/// The drives that are read, by a machine's own description or as one disk.
std::vector<HostedDrive> DrivesOf(const TakenFolder& from) {
  if (from.IsMachine()) return ReadLayout(from.folder).drives;
  return {{u'C', DriveType::Fixed, from.folder}};
}

/// A letter that no drive has; nothing when all are taken.
std::optional<char16_t> FreeLetter(const std::vector<HostedDrive>& drives) {
  for (char16_t letter = u'Z'; letter >= u'C'; --letter) {
    const bool taken =
        std::any_of(drives.begin(), drives.end(),
                    [letter](const HostedDrive& drive) { return drive.letter == letter; });
    if (!taken) return letter;
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
  std::error_code failure;
  fs::create_directories(work, failure);
  if (failure) throw MoveError(MoveFault::WorkNotCreated, work.string(), failure.message());
  if (HoldsOtherMachine(work, own)) throw MoveError(MoveFault::WorkTaken, work.string());
  const fs::path drive = work / std::string(1, static_cast<char>(own));
  fs::create_directory(drive, failure);
  if (failure) throw MoveError(MoveFault::WorkNotCreated, drive.string(), failure.message());
}

}  // namespace

SourceFolder::SourceFolder(const fs::path& from, const fs::path& work)
    : taken_(TakeSource(from)), readOnly_(!work.empty() || !taken_.IsMachine()) {
  if (!readOnly_) {
    machine_ = OpenMachineFolder(from);
    shared_ = ReadLayout(from).registryFile.parent_path();
    return;
  }
  if (work.empty()) temporary_ = std::make_unique<TemporaryFolder>();
  const fs::path folder = work.empty() ? temporary_->Path() : work;
  HostedLayout layout;
  layout.drives = DrivesOf(taken_);
  const std::optional<char16_t> letter = FreeLetter(layout.drives);
  if (!letter) throw MoveError(MoveFault::NoFreeLetter, from.string());
  MakeWork(folder, *letter);
  shared_ = work;
  const std::string name(1, static_cast<char>(*letter));
  layout.drives.push_back({*letter, DriveType::Fixed, folder / name});
  layout.registryFile = folder / "registry.reg";
  layout.shellFolders[ShellFolders::kDocuments] = String(1, *letter) + u":\\My Documents";
  groupRoot_ = name + ":\\Norvo Media\\";
  machine_ = std::make_shared<HostedPlatform>(std::move(layout));
}

}  // namespace norvo
