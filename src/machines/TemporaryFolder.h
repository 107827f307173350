#pragma once

#include <filesystem>

namespace norvo {

/// A folder of the system's temporary ones, which goes with this object and all that it holds.
class TemporaryFolder {
 public:
  /// MoveError when none can be made.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace norvo
