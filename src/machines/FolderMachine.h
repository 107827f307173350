#pragma once

#include <filesystem>

#include "cli/MachineAccess.h"
#include "machines/MachineLayout.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// A machine that is held in a folder.
class FolderMachine final : public MachineAccess {
 public:
  /// HostError when the folder is no machine.
  explicit FolderMachine(const std::filesystem::path& folder);

  HostedPlatform& Hosted() { return *platform_; }
  const MachineLayout& Layout() const { return layout_; }

  std::shared_ptr<norvo::Platform> Platform() override { return platform_; }
  void SetMessageDialog(MessageDialog& messages) override { platform_->SetMessageDialog(messages); }
  std::string SystemPathOf(StringView machinePath) const override;
  String MachinePathOf(const std::string& named) const override;

 private:
  std::shared_ptr<HostedPlatform> platform_;
  MachineLayout layout_;
};

}  // namespace norvo
