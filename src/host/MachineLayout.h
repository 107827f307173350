#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "text/Text.h"

namespace norvo::host {

/// One drive of a machine folder and where this system has it.
struct DrivePlace {
  char16_t letter = u'C';  ///< upper case
  String type;             ///< as machine.ini has it
  std::filesystem::path folder;
};

/// Where the drives of a machine folder are, to go from its paths to those of this system and back.
class MachineLayout {
 public:
  /// Takes the folder for a machine, whether it is one or not.
  explicit MachineLayout(const std::filesystem::path& machineFolder);

  const std::vector<DrivePlace>& Drives() const { return drives_; }
  /// A letter that no drive has; nothing when all are taken.
  std::optional<char16_t> FreeLetter() const;

  /// Where a machine path is on this system, as far as it exists; for messages.
  std::filesystem::path HostPathOf(StringView machinePath) const;
  /// What the machine calls an existing file of this system; nothing when it lies in no drive or
  /// its name cannot be a Windows name.
  std::optional<String> MachinePathOf(const std::filesystem::path& hostPath) const;

 private:
  std::vector<DrivePlace> drives_;
};

/// True for "C:\..." and "C:/...".
bool IsMachinePath(std::string_view text);

}  // namespace norvo::host
