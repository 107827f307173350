#pragma once

#include <windows.h>

namespace norvo {

/// While it lives, a call of this thread to an empty drive fails; otherwise the system would ask
/// the user for a disc. Other threads, and the program around the library, are left as they are.
class QuietDrives {
 public:
  QuietDrives() {
    changed_ =
        ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_) != FALSE;
  }
  ~QuietDrives() {
    if (changed_) ::SetThreadErrorMode(before_, nullptr);
  }
  QuietDrives(const QuietDrives&) = delete;
  QuietDrives& operator=(const QuietDrives&) = delete;

 private:
  DWORD before_ = 0;
  bool changed_ = false;
};

}  // namespace norvo
