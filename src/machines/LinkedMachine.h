#pragma once

#include <filesystem>
#include <string>

#include "services/FileSystem.h"

namespace norvo {

/// Makes a machine folder whose drives are links to folders elsewhere, so that every folder will
/// do, whatever its path holds. HostError when something cannot be made.
class LinkedMachine {
 public:
  /// An existing folder: an empty one, or one that was made such a machine before. HostError when
  /// it holds another machine.
  explicit LinkedMachine(std::filesystem::path folder);

  /// A drive whose contents stand elsewhere.
  void AddDrive(char16_t letter, DriveType type, const std::filesystem::path& contents);
  /// A fixed drive of its own, which takes what is written; also the user's documents.
  void AddOwnDrive(char16_t letter);
  /// Writes machine.ini; the folder can then be opened as a machine.
  void Finish();

 private:
  std::filesystem::path folder_;
  std::string drives_ = "[Drives]\r\n";
  std::string folders_;
};

}  // namespace norvo
