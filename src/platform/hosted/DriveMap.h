#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/hosted/HostCalls.h"
#include "services/FileSystem.h"
#include "services/IniDocument.h"

namespace norvo {

/// One drive of the machine and the folder that holds its contents. The folder of a drive may be
/// missing, like a disc that is not inserted.
class HostDrive {
 public:
  HostDrive(char16_t letter, DriveType type, std::string folder)
      : letter_(letter), type_(type), folder_(std::move(folder)) {}

  char16_t Letter() const { return letter_; }
  DriveType Type() const { return type_; }
  const std::string& Folder() const { return folder_; }
  /// Descriptor of the drive's folder, -1 while there is none.
  int Root() const;
  /// The path in the drive that a host path leads to when all links are followed; nothing when it
  /// leads nowhere or out of the drive.
  std::optional<std::string> Canonical(const std::string& path) const;

 private:
  char16_t letter_;
  DriveType type_;
  std::string folder_;
  mutable HostFile root_;
  mutable std::string realFolder_;  // without links; set together with root_
};

/// The drives of a machine: those that the section "Drives" of its settings names, otherwise one
/// fixed drive for each folder with a single-letter name.
class DriveMap {
 public:
  /// Lines such as a drive type that does not exist are added to `warnings`.
  DriveMap(const std::filesystem::path& machineFolder, const IniDocument& settings,
           std::vector<String>& warnings);

  /// True when the folder holds a folder with a single-letter name.
  static bool HasDriveFolder(const std::filesystem::path& machineFolder);

  /// Null for a drive that the machine lacks; the letter in either case.
  const HostDrive* Find(char16_t letter) const;
  std::vector<Drive> List() const;

 private:
  std::array<std::unique_ptr<HostDrive>, 26> drives_;
};

}  // namespace norvo
