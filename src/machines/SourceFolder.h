#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "machines/TakenFolder.h"
#include "machines/TemporaryFolder.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// The folder that a move comes from, as a machine: a machine folder, or any other, even an empty
/// one, as drive C of one. In the latter case, and with a work folder, nothing is written to it:
/// the product's data go to a drive of their own in the work folder, or in a temporary one.
class SourceFolder {
 public:
  /// `work` may be empty. MoveError when a folder cannot be used.
  SourceFolder(const std::filesystem::path& from, const std::filesystem::path& work);

  const std::shared_ptr<HostedPlatform>& Machine() const { return machine_; }
  /// What the folder was taken as.
  const TakenFolder& Taken() const { return taken_; }
  /// Where the product's data go; empty for the usual place.
  const std::string& GroupRoot() const { return groupRoot_; }
  /// Nothing below the folder is written.
  bool IsReadOnly() const { return readOnly_; }
  /// The folder that is written to and that others may write to at the same time; empty when there
  /// is none.
  const std::filesystem::path& SharedFolder() const { return shared_; }
  /// The product's data, and so the log, go with this object.
  bool IsTemporary() const { return temporary_ != nullptr; }

 private:
  TakenFolder taken_;
  std::unique_ptr<TemporaryFolder> temporary_;
  bool readOnly_;
  std::string groupRoot_;
  std::filesystem::path shared_;
  std::shared_ptr<HostedPlatform> machine_;
};

}  // namespace norvo
