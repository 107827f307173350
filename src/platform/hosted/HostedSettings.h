#pragma once

#include "platform/hosted/HostedFileSystem.h"
#include "services/Platform.h"

namespace norvo {

/// Whole settings files on the machine's drives.
class HostedSettings final : public SettingsStorage {
 public:
  /// `files` must outlive this.
  explicit HostedSettings(HostedFileSystem& files) : files_(files) {}
  std::optional<std::string> Read(StringView path) override;
  void Write(StringView path, const std::string& bytes) override;

 private:
  HostedFileSystem& files_;
};

}  // namespace norvo
