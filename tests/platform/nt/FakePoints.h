#pragma once

#include <windows.h>

#include <string>

namespace norvo {

/// While it lives, everything of a certain name passes for a reparse point, as far as open files
/// tell of themselves: this program's questions to the system are answered so. Not every system
/// that the tests run on lets programs make one.
class FakePoints {
 public:
  /// `attributes` are told besides FILE_ATTRIBUTE_REPARSE_POINT.
  FakePoints(std::wstring name, ULONG tag, ULONG attributes = 0);
  ~FakePoints();
  FakePoints(const FakePoints&) = delete;
  FakePoints& operator=(const FakePoints&) = delete;
};

}  // namespace norvo
