#include "machines/ThisPc.h"

#include "platform/windows/WindowsPlatform.h"

namespace norvo {
namespace {

std::shared_ptr<HostedPlatform> DrivesOf(Platform& machine) {
  HostedLayout layout;
  for (const Drive& drive : machine.Files().Drives()) {
    const std::string root{static_cast<char>(drive.letter), ':', '/'};
    layout.drives.push_back({drive.letter, drive.type, root});
  }
  return std::make_shared<HostedPlatform>(std::move(layout));
}

class WindowsPc final : public ThisPc {
 public:
  const std::shared_ptr<Platform>& Machine() override { return machine_; }
  const std::shared_ptr<HostedPlatform>& Disks() override { return disks_; }
  void SetMessageDialog(MessageDialog& messages) override { windows_->SetMessageDialog(messages); }

 private:
  std::shared_ptr<WindowsPlatform> windows_ = std::make_shared<WindowsPlatform>();
  std::shared_ptr<Platform> machine_ = windows_;
  std::shared_ptr<HostedPlatform> disks_ = DrivesOf(*machine_);
};

}  // namespace

bool IsThisPcAMachine() {
  return true;
}

std::shared_ptr<ThisPc> OpenThisPc() {
  return std::make_shared<WindowsPc>();
}

}  // namespace norvo
