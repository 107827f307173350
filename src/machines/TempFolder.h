#pragma once

#include <filesystem>

namespace norvo {

/// A folder of its own that goes with its owner. Links in it are removed, never followed.
class TempFolder {
 public:
  /// HostError when none can be made.
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace norvo
