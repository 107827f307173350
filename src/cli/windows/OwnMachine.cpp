#include <windows.h>

#include "cli/Console.h"
#include "cli/MachineAccess.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsPlatform.h"
#include "text/Encoding.h"

namespace norvo {
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
class OwnMachine final : public MachineAccess {
 public:
  std::shared_ptr<norvo::Platform> Platform() override { return platform_; }
  void SetMessageDialog(MessageDialog& messages) override { platform_->SetMessageDialog(messages); }
  std::string SystemPathOf(StringView machinePath) const override { return ToUtf8(machinePath); }
  String MachinePathOf(const std::string& named) const override {
    const String path = FromUtf8Lossy(named);
    if (IsMachinePath(named)) return path;
    const String full = FromCurrentFolder(path);
    if (full.empty()) throw HostError("\"" + named + "\" is no path. Name a playlist.");
    return full;
  }

 private:
  std::shared_ptr<WindowsPlatform> platform_ = std::make_shared<WindowsPlatform>();
};

}  // namespace

std::shared_ptr<MachineAccess> OpenMachine(const std::string&) {
  return std::make_shared<OwnMachine>();
}

}  // namespace norvo
