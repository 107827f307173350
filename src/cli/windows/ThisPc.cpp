#include "cli/ThisPc.h"

#include <windows.h>

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
class ThisPc final : public NamedMachine {
 public:
  explicit ThisPc(MessageDialog& messages) { platform_->SetMessageDialog(messages); }

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

bool IsThisPcAMachine() {
  return true;
}

std::shared_ptr<NamedMachine> OpenThisPc(Console& console) {
  return std::make_shared<ThisPc>(console);
}

}  // namespace norvo::cli
