#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "services/FileSystem.h"
#include "text/Text.h"

namespace norvo {

/// What a "machine.ini" tells of the machine in its folder, with no look at any disk.
struct MachineSettings {
  /// A drive as it is told.
  struct Drive {
    char16_t letter = u'C';               ///< upper case
    DriveType type = DriveType::Unknown;  ///< also of a name that is no type's
    String folder;                        ///< empty for the usual one, which bears the letter
  };

  std::optional<std::vector<Drive>> drives;     ///< by their letters; nothing where none is told of
  std::map<std::int32_t, String> shellFolders;  ///< by the shell's identifiers, as Windows paths
  std::vector<String> warnings;                 ///< what is odd about it, one line each
};

/// Any bytes can be read: they are UTF-8 text, or else 8-bit text.
MachineSettings ReadMachineSettings(const std::string& bytes);

}  // namespace norvo
