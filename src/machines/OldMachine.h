#pragma once

#include <memory>
#include <string>

#include "cli/Console.h"
#include "cli/Machine.h"
#include "machines/FolderMachine.h"
#include "machines/TempFolder.h"
#include "move/Settings.h"

namespace norvo {

/// The machine that a move starts from: a machine folder, or any folder as drive C of one. In the
/// latter case, and with a work folder, nothing is written to it: the product's data go to a drive
/// of their own in the work folder, or in a temporary one.
class OldMachine {
 public:
  /// `work` may be empty. HostError when the folder cannot be used.
  OldMachine(const std::string& from, const std::string& work, Console& console);

  Machine& Get() { return *machine_; }
  HostedPlatform& Files() { return folder_->Hosted(); }
  const norvo::Settings& Settings() const { return settings_; }
  /// Nothing below the folder is written.
  bool IsReadOnly() const { return readOnly_; }
  /// The product's data, and so the log, go with this object.
  bool IsTemporary() const { return temp_ != nullptr; }

 private:
  std::unique_ptr<TempFolder> temp_;
  std::shared_ptr<FolderMachine> folder_;
  std::unique_ptr<Machine> machine_;
  norvo::Settings settings_;
  bool readOnly_ = false;
};

}  // namespace norvo
