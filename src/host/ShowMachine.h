#pragma once

#include <memory>
#include <string>

#include "host/CommandLine.h"
#include "host/LinkedMachine.h"
#include "host/Machine.h"
#include "host/TempFolder.h"

namespace norvo::host {

/// A machine to read one playlist of, without a trace on the disk but for the log, when that is
/// asked for: the drives of the real machine
/// (or the playlist's own folder as drive C) and one more drive, which takes all that the library
/// writes and goes with this object.
class ShowMachine {
 public:
  /// HostError when the path names no playlist that can be reached.
  ShowMachine(const CommonArguments& common, const std::string& path, Console& console);

  Component& Library() { return machine_->Library(); }
  /// The playlist's path on the machine.
  const String& Path() const { return path_; }
  /// The machine folder; empty for a playlist that belongs to no machine.
  const std::filesystem::path& RealFolder() const { return realFolder_; }

 private:
  void UseMachine(const std::filesystem::path& folder, const std::string& path,
                  const CommonArguments& common, Console& console);
  void UseOwnFolder(const std::string& path, bool log, Console& console);
  void Open(char16_t productDrive, const String& logFolder, Console& console);

  TempFolder temp_;
  LinkedMachine drives_{temp_.Path()};
  std::filesystem::path realFolder_;
  String path_;
  std::unique_ptr<Machine> machine_;
};

}  // namespace norvo::host
