#pragma once

#include <windows.h>

#include "platform/files/FileFailure.h"

namespace norvo {

/// What an open file is besides a file or a folder.
struct ReparsePoint {
  FileFailure failure;  ///< why the system cannot tell
  /// Its name stands for another place: a symbolic link, a junction, a disk that is mounted there.
  bool isLink = false;
  /// Its bytes are elsewhere, and what would fetch them is not at work here: what could be read
  /// are others. Such are the songs of an old disk that were left in the cloud. Where the system
  /// itself fetches them, as on the machine that they belong to, it tells of no reparse point.
  bool lacksBytes = false;
};

ReparsePoint ReparsePointOf(HANDLE file);

}  // namespace norvo
