#include "cli/ShowMachine.h"

#include <cctype>

#include "automation/RunTimeError.h"
#include "cli/Machine.h"
#include "machines/FolderMachine.h"
#include "machines/LinkedMachine.h"
#include "machines/TempFolder.h"
#include "move/Settings.h"
#include "move/Setup.h"
#include "platform/hosted/HostName.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

bool IsSingleLetter(const fs::path& name) {
  const std::string text = name.string();
  return text.size() == 1 && std::isalpha(static_cast<unsigned char>(text.front())) != 0;
}

bool HoldsFile(const fs::path& machine, const fs::path& file) {
  try {
    const MachineLayout layout(HostedPlatform(machine).DriveFolders());
    return layout.MachinePathOf(file).has_value();
  } catch (const RunTimeError&) {
    return false;  // no machine folder
  }
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

/// Showing needs no settings, but who names a machine will want to go on with it.
void NameInit(Machine& machine, Console& console) {
  const Settings settings = ReadSettings(machine.Library());
  if (settings.role && !settings.groupRoot.empty()) return;
  console.Note(
      "This machine has no settings of the product yet; before scan or collect run "
      "norvo-playlists init --machine DIR.");
}

/// The file behind a path of this system.
fs::path ExistingFile(const std::string& path) {
  std::error_code failure;
  const fs::path file = fs::canonical(path, failure);
  if (failure) throw HostError(path + ": " + failure.message() + ". Check the path's spelling.");
  if (!fs::is_regular_file(file, failure)) throw HostError(path + " is no file. Name a playlist.");
  return file;
}

/// The drives of the real machine (or the playlist's own folder as drive C) and one more drive,
/// which takes all that the library writes and goes with this object.
class LinkedShowMachine final : public ShowMachine {
 public:
  LinkedShowMachine(const CommonArguments& common, const std::string& path, Console& console);

  Component& Library() override { return machine_->Library(); }
  const String& Path() const override { return path_; }
  std::string Folder() const override { return realFolder_.string(); }

 private:
  void UseMachine(const fs::path& folder, const std::string& path, const CommonArguments& common,
                  Console& console);
  void UseOwnFolder(const std::string& path, bool log, Console& console);
  void Open(char16_t productDrive, const String& logFolder, Console& console);

  TempFolder temp_;
  LinkedMachine drives_{temp_.Path()};
  fs::path realFolder_;
  String path_;
  std::unique_ptr<Machine> machine_;
};

LinkedShowMachine::LinkedShowMachine(const CommonArguments& common, const std::string& path,
                                     Console& console) {
  if (common.machine.empty() && IsMachinePath(path)) {
    throw HostError(path + " is a path of a machine. Name the machine's folder with --machine.");
  }
  const fs::path folder =
      common.machine.empty() ? MachineAbove(ExistingFile(path)) : fs::path(common.machine);
  if (!folder.empty()) {
    UseMachine(folder, path, common, console);
  } else {
    UseOwnFolder(path, common.log, console);
  }
}

void LinkedShowMachine::UseMachine(const fs::path& folder, const std::string& path,
                                   const CommonArguments& common, Console& console) {
  const auto held = std::make_shared<FolderMachine>(folder);
  Machine real(held, console);
  if (!common.machine.empty()) NameInit(real, console);
  realFolder_ = folder;
  if (IsMachinePath(path)) {
    path_ = FromUtf8Lossy(path);
  } else {
    const std::optional<String> inside = held->Layout().MachinePathOf(ExistingFile(path));
    if (!inside) {
      throw HostError(path + " lies in no drive of the machine " + folder.string() +
                      ". Name a path of the machine, or leave --machine out.");
    }
    path_ = *inside;
  }
  if (!real.Library().Files().FileExists(path_)) {
    throw HostError(ToUtf8(path_) + " is no file of the machine " + folder.string() +
                    ". Check the path's spelling.");
  }
  const std::optional<char16_t> letter = held->Layout().FreeLetter();
  if (!letter) throw HostError("The machine has no free drive letter. Leave --machine out.");
  for (const HostedDrive& drive : held->Layout().Drives()) {
    drives_.AddDrive(drive.letter, drive.type, drive.folder);
  }
  if (common.log) real.StartLog();
  Open(*letter, common.log ? real.Library().Machine().Product().Folder() : String(), console);
}

void LinkedShowMachine::UseOwnFolder(const std::string& path, bool log, Console& console) {
  const fs::path file = ExistingFile(path);
  const std::optional<String> name = FromHostName(file.filename().string());
  if (!name) {
    throw HostError(file.string() + ": the name cannot be a Windows name. Copy the file to " +
                    "another name, in the same folder.");
  }
  drives_.AddDrive(u'C', DriveType::Fixed, file.parent_path());
  path_ = u"C:\\" + *name;
  Open(u'Z', {}, console);
  if (log) {
    console.LeftOut("No log is written: " + path +
                    " belongs to no machine folder. Name one with --machine.");
  }
}

void LinkedShowMachine::Open(char16_t productDrive, const String& logFolder, Console& console) {
  const String root = String(1, productDrive) + u":\\";
  drives_.AddOwnDrive(productDrive);
  drives_.Finish();

  machine_ = std::make_unique<Machine>(std::make_shared<FolderMachine>(temp_.Path()), console);
  norvo::Registry& registry = Library().Machine().Registry();
  const String key = Library().Machine().Product().BaseKey();
  registry.CreateKey(Hive::LocalMachine, key);
  registry.Write(Hive::LocalMachine, key, u"ProductFolder",
                 logFolder.empty() ? root + u"Norvo\\" : logFolder);
  SetUp(Library(), {std::nullopt, ToUtf8(root) + "Norvo Media\\", false}, console);
  if (!logFolder.empty()) Library().SetLogMode(log_mode::kFile);
}

}  // namespace

std::unique_ptr<ShowMachine> OpenToShow(const CommonArguments& common, const std::string& path,
                                        Console& console) {
  return std::make_unique<LinkedShowMachine>(common, path, console);
}

}  // namespace norvo
