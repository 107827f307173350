#pragma once

#include <windows.h>
#include <winternl.h>

#include "platform/files/SystemFile.h"
#include "platform/nt/NtStatus.h"

namespace norvo {

/// INVALID_HANDLE_VALUE for a file that is not open.
inline HANDLE HandleOf(const SystemFile& file) {
  return reinterpret_cast<HANDLE>(file.Get());
}

inline SystemFile Owned(HANDLE handle) {
  return SystemFile(reinterpret_cast<SystemFile::Native>(handle));
}

/// What the system tells of an open file in one of its native structures; the answer of the call.
template <class Facts>
NTSTATUS Query(HANDLE file, FILE_INFORMATION_CLASS what, Facts& facts) {
  IO_STATUS_BLOCK block = {};
  return ::NtQueryInformationFile(file, &block, &facts, sizeof facts, what);
}

/// Changes what such a structure tells.
template <class Facts>
NTSTATUS Set(HANDLE file, FILE_INFORMATION_CLASS what, Facts& facts) {
  IO_STATUS_BLOCK block = {};
  return ::NtSetInformationFile(file, &block, &facts, sizeof facts, what);
}

}  // namespace norvo
