#include "machines/MachineFolder.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

#include "automation/RunTimeError.h"
#include "machines/ListedNames.h"
#include "move/MoveError.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FailureText.h"
#include "platform/files/FileError.h"
#include "platform/hosted/DiskName.h"
#include "services/IniDocument.h"
#include "text/CodePage.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kRegistryName = "registry.reg";

int LetterOf(const std::string& name) {
  return std::toupper(static_cast<unsigned char>(name.front()));
}

bool IsDriveName(const std::string& name) {
  return name.size() == 1 && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

/// By the names in the folder. Music that is sorted into folders from A to Z is no machine.
MachineSign SignByNames(const fs::path& folder) {
  const FileResult<std::vector<ListedName>> names = NamesIn(folder);
  if (!names) {
    throw MoveError(MoveFault::NotListed, ShownPath(folder), ToUtf8(FailureText(names.Failure())));
  }
  bool hasC = false;
  bool hasRegistry = false;
  bool hasOthers = false;
  for (const ListedName& each : *names) {
    hasRegistry = hasRegistry || each.name == kRegistryName;
    if (IsBesideDrives(each.name)) continue;
    const bool isDrive = IsDriveName(each.name) && IsFolder(folder, each);
    hasC = hasC || (isDrive && LetterOf(each.name) == 'C');
    hasOthers = hasOthers || !isDrive || LetterOf(each.name) < 'C';
  }
  if (!hasC) return MachineSign::None;
  if (hasRegistry) return MachineSign::Registry;
  return hasOthers ? MachineSign::None : MachineSign::DrivesAlone;
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
    throw MoveError(MoveFault::NoMachine, ShownPath(folder), ToUtf8(failure.Description()));
  }
}

std::string MachineSettingsText(const fs::path& folder) {
  try {
    return MachineSettingsIn(folder);
  } catch (const FileError& error) {
    throw MoveError(MoveFault::SettingsNotRead, ShownPath(folder / "machine.ini"),
                    ToUtf8(FailureText(error.Failure())));
  }
}

bool HasMachineSettings(const fs::path& folder) {
  const IniDocument settings(DecodeFile(MachineSettingsText(folder), Windows1252()));
  return settings.FindSection(u"Drives") != IniDocument::kNone ||
         settings.FindSection(u"ShellFolders") != IniDocument::kNone;
}

bool IsBesideDrives(std::string_view name) {
  if (name.front() == '.' || name == kRegistryName || name == "machine.ini") return true;
  // At the top of every disk that it meets, and into folders that are looked at.
  constexpr StringView kOfWindows[] = {u"System Volume Information", u"$RECYCLE.BIN", u"RECYCLER",
                                       u"desktop.ini", u"Thumbs.db"};
  const std::optional<String> text = FromDiskName(std::string(name));
  return text && std::any_of(std::begin(kOfWindows), std::end(kOfWindows),
                             [&](StringView each) { return EqualsIgnoreCase(each, *text); });
}

MachineSign SignOfMachine(const fs::path& folder) {
  return HasMachineSettings(folder) ? MachineSign::Settings : SignByNames(folder);
}

}  // namespace norvo
