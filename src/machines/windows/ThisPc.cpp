#include "machines/ThisPc.h"

#include <functional>
#include <utility>

#include "platform/windows/WideShell.h"
#include "platform/windows/WindowsPlatform.h"

namespace norvo {
namespace {

std::shared_ptr<HostedPlatform> DrivesOf(Platform& machine) {
  HostedLayout layout;
  layout.linksCross = true;
  for (const Drive& drive : machine.Files().Drives()) {
    const std::string root{static_cast<char>(drive.letter), ':', '/'};
    layout.drives.push_back({drive.letter, drive.type, root});
  }
  return std::make_shared<HostedPlatform>(std::move(layout));
}

/// Who hears of the machine's oddities hears of those of its drives. The names of its users and
/// folders may be in any script.
class MachineWithDisks final : public WindowsPlatform {
 public:
  const std::shared_ptr<HostedPlatform>& Disks() const { return disks_; }
  ShellFolders& Shell() override { return shell_; }
  void SetWarningSink(WarningSink sink) override {
    disks_->SetWarningSink(sink);
    WindowsPlatform::SetWarningSink(std::move(sink));
  }

 private:
  WideShell shell_;
  std::shared_ptr<HostedPlatform> disks_ = DrivesOf(*this);
};

class WindowsPc final : public ThisPc {
 public:
  const std::shared_ptr<Platform>& Machine() override { return machine_; }
  const std::shared_ptr<HostedPlatform>& Disks() override { return windows_->Disks(); }
  void SetMessageDialog(MessageDialog& messages) override { windows_->SetMessageDialog(messages); }

 private:
  std::shared_ptr<MachineWithDisks> windows_ = std::make_shared<MachineWithDisks>();
  std::shared_ptr<Platform> machine_ = windows_;
};

}  // namespace

bool IsThisPcAMachine() {
  return true;
}

std::shared_ptr<ThisPc> OpenThisPc() {
  return std::make_shared<WindowsPc>();
}

}  // namespace norvo
