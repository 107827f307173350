#pragma once

#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "platform/hosted/HostedPlatform.h"
#include "text/Text.h"

namespace norvo {

/// Where the drives of a machine folder are, to go from its paths to those of this system and back.
class MachineLayout {
 public:
  explicit MachineLayout(std::vector<HostedDrive> drives) : drives_(std::move(drives)) {}

  const std::vector<HostedDrive>& Drives() const { return drives_; }
  /// What the machine calls an existing file of this system; nothing when it lies in no drive or
  /// its name cannot be a Windows name.
  std::optional<String> MachinePathOf(const std::filesystem::path& hostPath) const;

 private:
  std::vector<HostedDrive> drives_;
};

}  // namespace norvo
