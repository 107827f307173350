#include <windows.h>

#include "cli/CommonOptions.h"
#include "cli/NamedMachine.h"
#include "cli/windows/FolderRefusal.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsPlatform.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

/// `GetFullPathNameW`: from the process's current folder, also where another drive is named.
String FromCurrentFolder(const String& path) {
  String full(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(full.size());
    const DWORD length = ::GetFullPathNameW(ToWide(path), size, ToWide(full), nullptr);
    full.resize(length);
    if (length < size) return full;
  }
}

/// The machine that the program runs on: its paths are those of this system.
class OwnMachine final : public NamedMachine {
 public:
  explicit OwnMachine(MessageDialog& messages) { platform_->SetMessageDialog(messages); }

  std::shared_ptr<norvo::Platform> Platform() override { return platform_; }
  String MachinePathOf(const std::string& named) const override {
    const String path = FromUtf8Lossy(named);
    if (IsMachinePath(named)) return path;
    const String full = FromCurrentFolder(path);
    if (full.empty()) throw CommandError("\"" + named + "\" is no path. Name a playlist.");
    return full;
  }

 private:
  std::shared_ptr<WindowsPlatform> platform_ = std::make_shared<WindowsPlatform>();
};

}  // namespace

std::shared_ptr<NamedMachine> OpenMachine(const CommonArguments&, Console& console, DocumentsUse) {
  return std::make_shared<OwnMachine>(console);
}

NamedPlaylist OpenPlaylist(const CommonArguments&, const std::string& path, Console& console) {
  OwnMachine machine(console);
  NamedPlaylist playlist{machine.Platform(), machine.MachinePathOf(path), {}};
  if (!playlist.machine->Files().FileExists(playlist.path)) {
    throw CommandError(ToUtf8(playlist.path) +
                       " is no file of this machine. Check the path's spelling.");
  }
  return playlist;
}

void AddMachineOption(CLI::App& command, CommonArguments&, bool) {
  const auto refuse = [](const std::string&) {
    throw CLI::ValidationError("--machine", kFolderRefusal);
  };
  command.add_option_function<std::string>("--machine", refuse)
      ->expected(0, 1)
      ->group("");  // no group, no help
}

}  // namespace norvo::cli
