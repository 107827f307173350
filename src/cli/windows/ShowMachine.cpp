#include "cli/ShowMachine.h"

#include <optional>

#include "cli/Machine.h"
#include "library/Library.h"
#include "move/Setup.h"
#include "overlay/OverlayPlatform.h"
#include "services/Logging.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Writes what it is shown to a machine's log.
class LogBox final : public MessageDialog {
 public:
  explicit LogBox(Component& library) : library_(library) {}
  void Show(StringView, StringView text) override { WriteLog(library_, text); }

 private:
  Component& library_;
};

/// An overlay of the machine takes all that the library writes. Settings that are missing are
/// written there, too.
class OverlayShowMachine final : public ShowMachine {
 public:
  OverlayShowMachine(const CommonArguments& common, const std::string& path, Console& console)
      : real_(OpenMachine(common.machine), console), path_(real_.Access().MachinePathOf(path)) {
    if (!real_.Library().Files().FileExists(path_)) {
      throw HostError(ToUtf8(path_) + " is no file of this machine. Check the path's spelling.");
    }
    SetUp(*library_, {std::nullopt, std::nullopt, false}, console);
    if (common.log) StartLog();
  }

  Component& Library() override { return *library_; }
  const String& Path() const override { return path_; }
  std::string Folder() const override { return {}; }

 private:
  /// A log file of the overlay would go with it. So its lines are shown, to the machine's own log.
  void StartLog() {
    real_.StartLog();
    overlay_->SetMessageDialog(log_);
    library_->SetLogMode(log_mode::kMessageBox);
  }

  Machine real_;
  String path_;
  LogBox log_{real_.Library()};
  std::shared_ptr<OverlayPlatform> overlay_ = std::make_shared<OverlayPlatform>(real_.Platform());
  std::unique_ptr<Component> library_ = OpenLibrary(overlay_);
};

}  // namespace

std::unique_ptr<ShowMachine> OpenToShow(const CommonArguments& common, const std::string& path,
                                        Console& console) {
  return std::make_unique<OverlayShowMachine>(common, path, console);
}

}  // namespace norvo
