#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// The machine that a folder holds, by whatever tells of one; null for a folder that is none.
std::shared_ptr<HostedPlatform> OpenIfMachine(const std::filesystem::path& folder);

/// The same; MoveError for a folder that is none.
std::shared_ptr<HostedPlatform> OpenMachineFolder(const std::filesystem::path& folder);

/// The bytes of a folder's machine.ini, empty without one. MoveError when it cannot be read, or is
/// no file or a very large one.
std::string MachineSettingsText(const std::filesystem::path& folder);

/// True for a folder whose machine.ini tells of drives or folders; others may have a file of that
/// name. MoveError as above.
bool HasMachineSettings(const std::filesystem::path& folder);

/// True for what may stand beside the drives of a machine, by its name: its settings, its registry,
/// hidden files, such as one that a stopped run has left, and what Windows puts into folders.
bool IsBesideDrives(std::string_view name);

/// What tells that a folder, which may as well be a disk, holds a machine; the first that fits.
enum class MachineSign {
  None,         ///< nothing does
  Settings,     ///< its machine.ini, which tells of drives or folders
  Registry,     ///< drive C and registry.reg, as a move leaves them, whatever has come beside them
  DrivesAlone,  ///< drive C, maybe others, and nothing else
};

/// MoveError as above, and when the folder cannot be listed.
MachineSign SignOfMachine(const std::filesystem::path& folder);

}  // namespace norvo
