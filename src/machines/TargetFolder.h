#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "machines/FolderLayout.h"
#include "machines/FolderMove.h"
#include "machines/TemporaryFolder.h"
#include "machines/ThisPc.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// What a move asks of its new machine.
LayoutWishes WishesFor(const FolderMove& folders);

/// The machine that a move goes to: a machine folder, or a disk as its one drive. One that is
/// neither yet is made a machine; for a dry run nothing is written, and an empty machine stands for
/// it. Where no folder is named it is this PC.
class TargetFolder {
 public:
  /// Takes what `folders` tells of the new machine. MoveError when the folder cannot be used.
  TargetFolder(const FolderMove& folders, bool dryRun);

  const std::shared_ptr<Platform>& Machine() const { return machine_; }
  /// The folders of its drives; but for this PC they are the machine itself.
  const std::shared_ptr<HostedPlatform>& Disks() const { return disks_; }
  /// Shows the machine's messages from now on. Not owned.
  void SetMessageDialog(MessageDialog& messages);
  /// What the folder was taken as.
  const TakenFolder& Taken() const { return taken_; }
  /// Where songs and lists go without a wish, in UTF-8; empty for the usual place.
  const std::string& UsualGroupRoot() const { return usualGroupRoot_; }
  /// Where the machine's registry is, or will be; nowhere of this PC.
  const RegistryPlace& Registry() const { return registry_; }
  /// How many bytes the disk that takes a path of the machine has room for, or that will take it,
  /// of a dry run; nothing where the system does not tell.
  std::optional<std::uint64_t> FreeBytesAt(StringView path) const;
  /// The folder whose lock keeps others from the machine; empty where there is none.
  std::filesystem::path SharedFolder() const;

 private:
  void OpenPc(const FolderMove& folders);
  void OpenFolder(const FolderMove& folders, bool dryRun);

  TakenFolder taken_;
  std::unique_ptr<TemporaryFolder> temporary_;
  std::string usualGroupRoot_;
  RegistryPlace registry_;
  std::shared_ptr<ThisPc> pc_;
  std::shared_ptr<HostedPlatform> disks_;
  std::shared_ptr<Platform> machine_;
};

}  // namespace norvo
