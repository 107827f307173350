#pragma once

#include <span>
#include <vector>

#include "services/Platform.h"

namespace norvo {

/// The names of a folder in order without regard to case; see `FileSystem::ListFolder`.
std::vector<FolderItem> ListSorted(FileSystem& files, StringView folder,
                                   std::span<const StringView> endings);

/// The drive scanner over a file system service.
class FolderScanner final : public DriveScanner {
 public:
  explicit FolderScanner(FileSystem& files) : files_(files) {}
  void Scan(std::span<const StringView> endings, ScanVisitor& visitor) override;

 private:
  FileSystem& files_;
};

}  // namespace norvo
