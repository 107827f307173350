#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "services/FileSystem.h"
#include "text/Text.h"

namespace norvo {

/// A drive of a machine that is held in a folder.
struct HostedDrive {
  char16_t letter = u'C';               ///< upper case
  DriveType type = DriveType::Unknown;  ///< only fixed drives are searched
  std::filesystem::path folder;  ///< holds the drive's contents; missing while nothing is inserted
};

/// What a machine that is held in folders consists of.
struct HostedLayout {
  /// Letters from A to Z, in either case; of two drives with one letter the first holds.
  std::vector<HostedDrive> drives;
  /// A missing one is an empty registry, which is written there by its first key. Without a path
  /// nothing is read or written.
  std::filesystem::path registryFile;
  /// By the shell's identifiers, as Windows paths. The documents, when they are not among them, are
  /// in "C:\My Documents".
  std::map<std::int32_t, String> shellFolders;
  /// Whether a link of one drive may lead to another one, as on the PC that the process runs on. Of
  /// a machine that is held in folders it may not: nothing there is known of where it led.
  bool linksCross = false;
  std::vector<String> warnings;  ///< what is odd about the machine's settings, one line each
};

/// The bytes of a machine folder's "machine.ini"; empty when there is none. FileError when it
/// cannot be read: also for one that is no file, such as a pipe or a device, which is not waited
/// for, and for one of more than 1 MiB.
std::string MachineSettingsIn(const std::filesystem::path& machineFolder);

/// The layout of the machine in a folder: what its "machine.ini" tells of drives and shell folders;
/// without drives there, one fixed drive for each folder with a single-letter name. The registry is
/// its file "registry.reg". Error 76, naming the folder, when it is no folder or holds no machine;
/// an error that names the settings when they cannot be read.
HostedLayout ReadLayout(const std::filesystem::path& machineFolder);

}  // namespace norvo
