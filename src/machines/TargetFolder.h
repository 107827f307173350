#pragma once

#include <filesystem>
#include <memory>

#include "machines/TemporaryFolder.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// The folder that a move goes to, as a machine. One that is no machine is made one; for a dry run
/// nothing is written, and an empty machine stands for it.
class TargetFolder {
 public:
  /// MoveError when the folder cannot be used.
  TargetFolder(const std::filesystem::path& to, bool dryRun);

  const std::shared_ptr<HostedPlatform>& Machine() const { return machine_; }

 private:
  std::unique_ptr<TemporaryFolder> temporary_;
  std::shared_ptr<HostedPlatform> machine_;
};

}  // namespace norvo
