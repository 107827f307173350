#include "host/migrate/OldMachine.h"

#include <cctype>
#include <fstream>
#include <iterator>
#include <optional>

#include "host/LinkedMachine.h"
#include "host/Setup.h"
#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"

namespace norvo::host {
namespace {

namespace fs = std::filesystem;

bool IsDriveName(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.size() == 1 && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

bool IsHidden(const fs::path& path) {
  return path.filename().string().front() == '.';
}

/// True for a machine.ini that tells of a machine; others may have a file of that name.
bool TellsOfMachine(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(stream)), {});
  const IniDocument settings(DecodeFile(bytes, Windows1252()));
  return settings.FindSection(u"Drives") != IniDocument::kNone ||
         settings.FindSection(u"ShellFolders") != IniDocument::kNone;
}

/// True for a folder that holds drive C, maybe others, and nothing else but hidden files, such as
/// one that a stopped run has left. Music that is sorted into folders from A to Z is no machine.
bool HoldsDrivesAlone(const fs::path& folder) {
  std::error_code failure;
  bool hasC = false;
  for (fs::directory_iterator at(folder, failure), end; at != end; at.increment(failure)) {
    const fs::path name = at->path().filename();
    if (IsHidden(name) || name == "registry.reg" || name == "machine.ini") continue;
    if (!at->is_directory(failure) || !IsDriveName(at->path())) return false;
    const int letter = std::toupper(static_cast<unsigned char>(at->path().filename().string()[0]));
    if (letter < 'C') return false;
    hasC = hasC || letter == 'C';
  }
  if (failure) throw HostError(folder.string() + ": " + failure.message());
  return hasC;
}

/// In doubt a folder is a disk, to which nothing is written.
bool IsMachineFolder(const fs::path& folder) {
  return TellsOfMachine(folder / "machine.ini") || HoldsDrivesAlone(folder);
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
  if (failure) {
    throw HostError(work.string() + ": " + failure.message() + ". Choose another --work.");
  }
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
