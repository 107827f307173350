#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/Console.h"
#include "host/MachineLayout.h"
#include "platform/hosted/HostedPlatform.h"
#include "services/Component.h"

namespace norvo::host {

/// The library over one machine folder, with the machine's messages and warnings on the console.
class Machine {
 public:
  /// HostError when the folder is no machine. The console must outlive this.
  Machine(const std::filesystem::path& folder, Console& console);
  ~Machine();
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Component& Library() { return *component_; }
  const std::shared_ptr<HostedPlatform>& Platform() { return platform_; }
  const MachineLayout& Layout() const { return layout_; }

  /// Turns the debug log on, and says where it will be, or that it cannot be.
  void StartLog();
  /// The log was turned on and can be written.
  bool HasLog() const { return hasLog_; }
  /// The log file's path on the machine.
  String LogPath();

  /// "C:\Norvo\VBLog.txt (/mnt/old-disk/C/Norvo/VBLog.txt)"
  std::string Both(StringView machinePath) const;

 private:
  class ConsoleBox;

  Console& console_;
  std::shared_ptr<HostedPlatform> platform_;
  std::unique_ptr<ConsoleBox> box_;
  std::unique_ptr<Component> component_;
  MachineLayout layout_;
  bool hasLog_ = false;
};

}  // namespace norvo::host
