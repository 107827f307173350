#pragma once

#include <span>

#include "services/Platform.h"

namespace norvo {

/// The drive scanner over a file system service.
class FolderScanner final : public DriveScanner {
 public:
  explicit FolderScanner(FileSystem& files) : files_(files) {}
  void Scan(std::span<const StringView> endings, ScanVisitor& visitor) override;

 private:
  FileSystem& files_;
};

}  // namespace norvo
