#pragma once

#include <cstdint>

#include "platform/files/FileFailure.h"

namespace norvo {

// Codes that some headers lack.
constexpr std::uint32_t kDirectoryNotSupported = 336;  // ERROR_DIRECTORY_NOT_SUPPORTED
constexpr std::uint32_t kStoppedOnSymlink = 681;       // ERROR_STOPPED_ON_SYMLINK
constexpr std::uint32_t kDiskQuotaExceeded = 1295;     // ERROR_DISK_QUOTA_EXCEEDED

/// The failure that a code of `GetLastError` tells of; none for 0.
FileFailure FailureOfCode(std::uint32_t code);

/// That of the call that has just failed.
FileFailure LastFailure();

/// For a call that answers FALSE when it fails.
inline FileFailure FailureUnlessTrue(int result) {
  return result != 0 ? FileFailure() : LastFailure();
}

}  // namespace norvo
