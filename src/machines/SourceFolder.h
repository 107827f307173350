#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "machines/FolderMove.h"
#include "machines/TakenFolder.h"
#include "machines/ThisPc.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// The machine that a move comes from: a machine folder, or any other, even an empty one, as drive
/// C of one. In the latter case, with a work folder, where drive C of the machine is a disk that
/// stands elsewhere, and where its folder cannot be written to, nothing is written to it: the
/// product's data go to a drive of their own in the work folder, or in a temporary one. Where no
/// folder is named it is this PC, to which nothing is written either.
class SourceFolder {
 public:
  /// `folders` tells where the move comes from. MoveError when a folder cannot be used.
  explicit SourceFolder(const FolderMove& folders);

  const std::shared_ptr<Platform>& Machine() const { return machine_; }
  /// The folders of its drives; but for this PC they are the machine itself. A temporary folder
  /// goes with the last who holds them.
  const std::shared_ptr<HostedPlatform>& Disks() const { return disks_; }
  /// Shows the machine's messages from now on. Not owned.
  void SetMessageDialog(MessageDialog& messages);
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
  bool IsTemporary() const { return isTemporary_ || pc_ != nullptr; }

 private:
  void OpenPc(const FolderMove& folders);
  void OpenFolder(const FolderMove& folders);
  void Spare(const FolderMove& folders);

  TakenFolder taken_;
  bool isTemporary_ = false;
  bool readOnly_;
  std::string groupRoot_;
  std::filesystem::path shared_;
  std::shared_ptr<ThisPc> pc_;
  std::shared_ptr<HostedPlatform> disks_;
  std::shared_ptr<Platform> machine_;
};

}  // namespace norvo
