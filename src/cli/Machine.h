#pragma once

#include <memory>
#include <string>

#include "cli/Console.h"
#include "cli/MachineAccess.h"
#include "services/Component.h"

namespace norvo {

/// The library over one machine, with the machine's messages and warnings on the console.
class Machine {
 public:
  /// The console must outlive this.
  Machine(std::shared_ptr<MachineAccess> access, Console& console);
  ~Machine();
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Component& Library() { return *component_; }
  const MachineAccess& Access() const { return *access_; }
  std::shared_ptr<norvo::Platform> Platform() { return access_->Platform(); }

  /// Turns the debug log on, and says where it will be, or that it cannot be.
  void StartLog();
  /// The log was turned on and can be written.
  bool HasLog() const { return hasLog_; }
  /// The log file's path on the machine.
  String LogPath();

  /// "C:\Norvo\VBLog.txt (/mnt/old-disk/C/Norvo/VBLog.txt)"; the path once where both are one.
  std::string Both(StringView machinePath) const;

 private:
  class ConsoleBox;

  Console& console_;
  std::shared_ptr<MachineAccess> access_;
  std::unique_ptr<ConsoleBox> box_;
  std::unique_ptr<Component> component_;
  bool hasLog_ = false;
};

}  // namespace norvo
