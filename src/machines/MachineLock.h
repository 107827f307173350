#pragma once

#include <filesystem>
#include <optional>

#include "machines/LockWishes.h"
#include "platform/files/FileLock.h"

namespace norvo {

/// Keeps all other runs of the library from a machine, on this system and on others that lock files
/// of the same disk, as long as it lives. Two runs that write to one
/// machine would each take away what the other has begun.
class MachineLock {
 public:
  /// Locks the folder of the machine's registry, which is made where it is missing, and goes again
  /// when it stays empty. A folder that cannot be written is not locked. MoveError (MachineBusy)
  /// when another run has it and nobody is to wait.
  MachineLock(const std::filesystem::path& registryFolder, const LockWishes& wishes);
  ~MachineLock();
  MachineLock(const MachineLock&) = delete;
  MachineLock& operator=(const MachineLock&) = delete;

 private:
  std::filesystem::path made_;  // by this; empty when the folder was there
  std::optional<FileLock> lock_;
};

}  // namespace norvo
