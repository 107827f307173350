#pragma once

#include <filesystem>
#include <string>

namespace norvo {

/// A folder that nobody else has, among the system's temporary ones. Gone with this object,
/// whatever is in it by then; what is open must be closed before.
class FreshFolder {
 public:
  /// Its name begins so.
  explicit FreshFolder(const std::string& name);
  ~FreshFolder();
  FreshFolder(const FreshFolder&) = delete;
  FreshFolder& operator=(const FreshFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace norvo
