#include "cli/FolderMachine.h"

#include <cctype>
#include <filesystem>
#include <optional>

#include "automation/RunTimeError.h"
#include "cli/FolderWords.h"
#include "cli/LockWords.h"
#include "cli/ReadAheadObserver.h"
#include "library/Library.h"
#include "machines/FolderLayout.h"
#include "machines/MachineFolder.h"
#include "machines/MachineLock.h"
#include "machines/ThisPc.h"
#include "move/ProductSettings.h"
#include "platform/files/DiskPath.h"
#include "platform/hosted/DiskName.h"
#include "platform/hosted/SystemPaths.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

namespace fs = std::filesystem;

/// What is known of the folder of a machine that is named for a command.
struct FolderFacts {
  std::string usualGroupRoot;
  bool isBareDisk = false;
  fs::path registryFolder;
  LockWishes lock;
};

/// A path that looks like one of a machine. On Windows those of this system look the same: one that
/// leads into the machine's folder is meant as such.
String PathOfMachine(const HostedPlatform& machine, const std::string& path) {
  std::optional<String> inside;
  if (IsThisPcAMachine()) inside = PathOnMachine(machine.DriveFolders(), ToSystemPath(path));
  return inside ? *inside : FromUtf8Lossy(path);
}

/// A machine that is held in a folder.
class FolderMachine final : public NamedMachine {
 public:
  FolderMachine(std::shared_ptr<HostedPlatform> platform, MessageDialog& messages,
                FolderFacts facts = {})
      : platform_(std::move(platform)), facts_(std::move(facts)) {
    platform_->SetMessageDialog(messages);
  }

  HostedPlatform& Hosted() { return *platform_; }
  std::shared_ptr<norvo::Platform> Platform() override { return platform_; }
  String MachinePathOf(const std::string& named) const override {
    if (IsMachinePath(named)) return PathOfMachine(*platform_, named);
    const std::optional<String> inside =
        PathOnMachine(platform_->DriveFolders(), ToSystemPath(named));
    if (!inside) {
      throw CommandError(named +
                         " is no file of the machine. Name a path of the machine, such as " +
                         R"(C:\Music\Mix.m3u, or of a file in its folder.)");
    }
    return *inside;
  }
  std::string UsualGroupRoot() const override { return facts_.usualGroupRoot; }
  void Lock() override { lock_.emplace(facts_.registryFolder, facts_.lock); }
  std::unique_ptr<WorkObserver> ReadAhead() override {
    return std::make_unique<ReadAheadObserver>(*platform_);
  }
  bool IsBareDisk() const override { return facts_.isBareDisk; }

 private:
  std::shared_ptr<HostedPlatform> platform_;
  FolderFacts facts_;
  std::optional<MachineLock> lock_;
};

/// The machine of `--machine`: a machine folder, or a disk.
std::shared_ptr<FolderMachine> OpenFolder(const CommonArguments& common, Console& console,
                                          DocumentsUse use) {
  const TakenFolder taken = TakeFolder(ToSystemPath(common.machine));
  if (!taken.IsMachine() && !taken.IsDisk()) {
    return std::make_shared<FolderMachine>(OpenMachineFolder(ToSystemPath(common.machine)),
                                           console);
  }
  FolderLayout folder = LayOut(taken, {common.user, {}, {}, use == DocumentsUse::Needed});
  if (taken.IsDisk()) console.Note(TextOf(taken));
  FolderFacts facts{std::move(folder.usualGroupRoot), taken.IsDisk() && folder.groupRoot.empty(),
                    folder.layout.registryFile.parent_path(), LockWishesOf(common, console)};
  return std::make_shared<FolderMachine>(std::make_shared<HostedPlatform>(std::move(folder.layout)),
                                         console, std::move(facts));
}

bool IsSingleLetter(const fs::path& name) {
  const std::string text = ToDiskPath(name);
  return text.size() == 1 && std::isalpha(static_cast<unsigned char>(text.front())) != 0;
}

bool HoldsFile(const fs::path& folder, const fs::path& file) {
  const std::shared_ptr<HostedPlatform> machine = OpenIfMachine(folder);
  return machine && PathOnMachine(machine->DriveFolders(), file).has_value();
}

/// The machine folder that a file lies in: the nearest folder above that has a machine's own files,
/// else the outermost one that holds a drive's folder (music is often kept in folders A to Z).
/// Empty when there is none.
fs::path MachineAbove(const fs::path& file) {
  fs::path outermost;
  fs::path below = file;
  for (fs::path folder = file.parent_path(); folder != below; folder = folder.parent_path()) {
    std::error_code ignored;
    const bool marked =
        fs::exists(folder / "machine.ini", ignored) || fs::exists(folder / "registry.reg", ignored);
    const bool holdsDrive = below != file && IsSingleLetter(below.filename());
    if ((marked || holdsDrive) && HoldsFile(folder, file)) {
      if (marked) return folder;
      outermost = folder;
    }
    below = folder;
  }
  return outermost;
}

/// The file behind a path of this system.
fs::path ExistingFile(const std::string& path) {
  std::error_code failure;
  const fs::path file = fs::canonical(ToSystemPath(path), failure);
  if (failure) throw CommandError(path + ": " + failure.message() + ". Check the path's spelling.");
  if (!fs::is_regular_file(file, failure)) {
    throw CommandError(path + " is no file. Name a playlist.");
  }
  return file;
}

String PathInside(const HostedPlatform& machine, const fs::path& folder, const std::string& path) {
  if (IsMachinePath(path)) return PathOfMachine(machine, path);
  const std::optional<String> inside = PathOnMachine(machine.DriveFolders(), ExistingFile(path));
  if (inside) return *inside;
  throw CommandError(path + " lies in no drive of the machine " + ShownPath(folder) +
                     ". Name a path of the machine, or leave --machine out.");
}

/// A playlist of a machine.
NamedPlaylist OnMachine(FolderMachine& machine, const fs::path& folder, const std::string& path) {
  NamedPlaylist playlist{machine.Platform(), PathInside(machine.Hosted(), folder, path),
                         ShownPath(folder)};
  if (!machine.Hosted().Files().FileExists(playlist.path)) {
    throw CommandError(ToUtf8(playlist.path) + " is no file of the machine " + ShownPath(folder) +
                       ". Check the path's spelling.");
  }
  return playlist;
}

/// A playlist that lies in no machine: its own folder is drive C of one.
NamedPlaylist OnItsOwn(const std::string& path, MessageDialog& messages) {
  const fs::path file = ExistingFile(path);
  const std::optional<String> name = FromDiskName(ToDiskPath(file.filename()));
  if (!name) {
    throw CommandError(ShownPath(file) + ": the name cannot be a Windows name. Copy the file to " +
                       "another name, in the same folder.");
  }
  HostedLayout layout;
  layout.drives.push_back({u'C', DriveType::Fixed, file.parent_path()});
  const auto machine = std::make_shared<HostedPlatform>(std::move(layout));
  machine->SetMessageDialog(messages);
  NamedPlaylist playlist{machine, u"C:\\" + *name, {}};
  playlist.hasLog = false;
  return playlist;
}

bool LacksSettings(const std::shared_ptr<Platform>& machine) {
  const ProductSettings settings = ReadProductSettings(*OpenLibrary(machine));
  return !settings.role || settings.groupRoot.empty();
}

}  // namespace

std::shared_ptr<NamedMachine> OpenFolderMachine(const CommonArguments& common, Console& console,
                                                DocumentsUse use) {
  return OpenFolder(common, console, use);
}

NamedPlaylist OpenFolderPlaylist(const CommonArguments& common, const std::string& path,
                                 Console& console) {
  if (!common.machine.empty()) {
    const auto machine = OpenFolder(common, console, DocumentsUse::Unneeded);
    NamedPlaylist playlist = OnMachine(*machine, ToSystemPath(common.machine), path);
    playlist.lacksSettings = LacksSettings(playlist.machine);
    return playlist;
  }
  if (IsMachinePath(path)) {
    throw CommandError(path + " is a path of a machine. Name the machine's folder with --machine.");
  }
  const fs::path above = MachineAbove(ExistingFile(path));
  if (above.empty()) return OnItsOwn(path, console);
  FolderMachine machine(OpenMachineFolder(above), console);
  return OnMachine(machine, above, path);
}

}  // namespace norvo::cli
