#pragma once

#include "platform/windows/WindowsFileSystem.h"
#include "services/Platform.h"

namespace norvo {

/// Whole settings files on the machine's disks.
class WindowsSettings final : public SettingsStorage {
 public:
  /// `files` must outlive this.
  explicit WindowsSettings(WindowsFileSystem& files) : files_(files) {}
  std::optional<std::string> Read(StringView path) override;
  /// `FlushFileBuffers` and `MoveFileExW`. A read-only file is not replaced: error 70.
  void Write(StringView path, const std::string& bytes) override;

 private:
  WindowsFileSystem& files_;
};

}  // namespace norvo
