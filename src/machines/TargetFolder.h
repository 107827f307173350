#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "machines/FolderLayout.h"
#include "machines/FolderMove.h"
#include "machines/TemporaryFolder.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// What a move asks of its new machine.
LayoutWishes WishesFor(const FolderMove& folders);

/// The folder that a move goes to, as a machine: a machine folder, or a disk as its one drive. One
/// that is neither yet is made a machine; for a dry run nothing is written, and an empty machine
/// stands for it.
class TargetFolder {
 public:
  /// Takes what `folders` tells of the new machine. MoveError when the folder cannot be used.
  TargetFolder(const FolderMove& folders, bool dryRun);

  const std::shared_ptr<HostedPlatform>& Machine() const { return machine_; }
  /// What the folder was taken as.
  const TakenFolder& Taken() const { return taken_; }
  /// Where songs and lists go without a wish, in UTF-8; empty for the usual place.
  const std::string& UsualGroupRoot() const { return usualGroupRoot_; }
  /// Where the machine's registry is, or will be.
  const RegistryPlace& Registry() const { return registry_; }

 private:
  TakenFolder taken_;
  std::unique_ptr<TemporaryFolder> temporary_;
  std::string usualGroupRoot_;
  RegistryPlace registry_;
  std::shared_ptr<HostedPlatform> machine_;
};

}  // namespace norvo
