#include "machines/MachineFolder.h"

#include <cctype>
#include <string>
#include <system_error>

#include "automation/RunTimeError.h"
#include "move/MoveError.h"
#include "platform/files/FailureText.h"
#include "platform/files/FileError.h"
#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

bool IsDriveName(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.size() == 1 && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

/// True for a folder that holds drive C, maybe others, and nothing else. Music that is sorted into
/// folders from A to Z is no machine.
bool HoldsDrivesAlone(const fs::path& folder) {
  std::error_code failure;
  bool hasC = false;
  for (fs::directory_iterator at(folder, failure), end; at != end; at.increment(failure)) {
    if (IsBesideDrives(at->path())) continue;
    if (!at->is_directory(failure) || !IsDriveName(at->path())) return false;
    const int letter = std::toupper(static_cast<unsigned char>(at->path().filename().string()[0]));
    if (letter < 'C') return false;
    hasC = hasC || letter == 'C';
  }
  if (failure) throw MoveError(MoveFault::NotListed, folder.string(), failure.message());
  return hasC;
}

}  // namespace

std::shared_ptr<HostedPlatform> OpenIfMachine(const fs::path& folder) {
  try {
    return std::make_shared<HostedPlatform>(folder);
  } catch (const RunTimeError&) {
    return nullptr;
  }
}

std::shared_ptr<HostedPlatform> OpenMachineFolder(const fs::path& folder) {
  try {
    return std::make_shared<HostedPlatform>(folder);
  } catch (const RunTimeError& failure) {
    throw MoveError(MoveFault::NoMachine, folder.string(), ToUtf8(failure.Description()));
  }
}

std::string MachineSettingsText(const fs::path& folder) {
  try {
    return MachineSettingsIn(folder);
  } catch (const FileError& error) {
    throw MoveError(MoveFault::SettingsNotRead, (folder / "machine.ini").string(),
                    ToUtf8(FailureText(error.Failure())));
  }
}

bool HasMachineSettings(const fs::path& folder) {
  const IniDocument settings(DecodeFile(MachineSettingsText(folder), Windows1252()));
  return settings.FindSection(u"Drives") != IniDocument::kNone ||
         settings.FindSection(u"ShellFolders") != IniDocument::kNone;
}

bool IsBesideDrives(const fs::path& path) {
  const fs::path name = path.filename();
  return name.string().front() == '.' || name == "registry.reg" || name == "machine.ini";
}

bool IsSurelyMachine(const fs::path& folder) {
  return HasMachineSettings(folder) || HoldsDrivesAlone(folder);
}

}  // namespace norvo
