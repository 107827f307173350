#include "cli/NamedMachine.h"

#include "cli/FolderMachine.h"
#include "cli/ThisPcMachine.h"
#include "machines/ThisPc.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

/// A playlist of this PC, at a path of it.
NamedPlaylist OpenOwnPlaylist(const CommonArguments& common, const std::string& path,
                              Console& console) {
  const std::shared_ptr<NamedMachine> machine = OpenThisPcMachine(common, console);
  NamedPlaylist playlist{machine->Platform(), machine->MachinePathOf(path), {}};
  if (!playlist.machine->Files().FileExists(playlist.path)) {
    throw CommandError(ToUtf8(playlist.path) +
                       " is no file of this PC. Check the path's spelling.");
  }
  return playlist;
}

}  // namespace

std::shared_ptr<NamedMachine> OpenMachine(const CommonArguments& common, Console& console,
                                          DocumentsUse use) {
  if (common.machine.empty() && IsThisPcAMachine()) return OpenThisPcMachine(common, console);
  return OpenFolderMachine(common, console, use);
}

NamedPlaylist OpenPlaylist(const CommonArguments& common, const std::string& path,
                           Console& console) {
  if (common.machine.empty() && IsThisPcAMachine()) return OpenOwnPlaylist(common, path, console);
  return OpenFolderPlaylist(common, path, console);
}

bool IsMachinePath(std::string_view text) {
  return text.size() >= 3 && text[1] == ':' && (text[2] == '\\' || text[2] == '/') &&
         ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z'));
}

std::string BothPaths(Platform& machine, StringView path) {
  const std::string shown = ToUtf8(path);
  const std::string place = machine.SystemPathOf(path);
  return shown + (place.empty() || place == shown ? "" : " (" + place + ")");
}

}  // namespace norvo::cli
