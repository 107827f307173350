#pragma once

#include <memory>
#include <string>

#include "cli/Console.h"
#include "cli/Machine.h"
#include "machines/FolderMachine.h"
#include "machines/TempFolder.h"
#include "move/Settings.h"
#include "overlay/OverlayPlatform.h"

namespace norvo {

/// The machine that a move goes to. A folder that is no machine is made one, and the settings that
/// it lacks are written. For a trial nothing is written: the machine is shown as it would be.
class NewMachine {
 public:
  /// HostError when the folder cannot be used.
  NewMachine(const std::string& to, bool trial, Console& console);

  /// Works on the machine itself, or in a trial on what it would be.
  Component& Library() { return trial_ ? *planLibrary_ : machine_->Library(); }
  /// Lies over the machine, and keeps what a plan supposes.
  OverlayPlatform& Plan() { return *plan_; }
  Component& PlanLibrary() { return *planLibrary_; }
  HostedPlatform& Files() { return folder_->Hosted(); }
  const norvo::Settings& Settings() const { return settings_; }
  Machine& Get() { return *machine_; }

 private:
  bool trial_;
  std::unique_ptr<TempFolder> temp_;
  std::shared_ptr<FolderMachine> folder_;
  std::unique_ptr<Machine> machine_;
  std::shared_ptr<OverlayPlatform> plan_;
  std::unique_ptr<Component> planLibrary_;
  norvo::Settings settings_;
};

}  // namespace norvo
