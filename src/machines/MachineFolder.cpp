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

bool IsDriveName(const std::string& name) {
  return name.size() == 1 && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

/// True for a folder that holds drive C, maybe others, and nothing else. Music that is sorted into
/// folders from A to Z is no machine.
bool HoldsDrivesAlone(const fs::path& folder) {
  const FileResult<std::vector<ListedName>> names = NamesIn(folder);
  if (!names) {
    throw MoveError(MoveFault::NotListed, ShownPath(folder), ToUtf8(FailureText(names.Failure())));
  }
  bool hasC = false;
  for (const ListedName& each : *names) {
    if (IsBesideDrives(each.name)) continue;
    if (!IsFolder(folder, each) || !IsDriveName(each.name)) return false;
    const int letter = std::toupper(static_cast<unsigned char>(each.name.front()));
    if (letter < 'C') return false;
    hasC = hasC || letter == 'C';
  }
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
  if (name.front() == '.' || name == "registry.reg" || name == "machine.ini") return true;
  // What Windows puts at the top of every disk that it meets.
  constexpr StringView kOfWindows[] = {u"System Volume Information", u"$RECYCLE.BIN", u"RECYCLER"};
  const std::optional<String> text = FromDiskName(std::string(name));
  return text && std::any_of(std::begin(kOfWindows), std::end(kOfWindows),
                             [&](StringView each) { return EqualsIgnoreCase(each, *text); });
}

bool IsSurelyMachine(const fs::path& folder) {
  return HasMachineSettings(folder) || HoldsDrivesAlone(folder);
}

}  // namespace norvo
