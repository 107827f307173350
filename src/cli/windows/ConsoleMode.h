#pragma once

#include <windows.h>

namespace norvo::cli {

/// While it lives, the console takes UTF-8, and what draws the progress on standard error. The
/// console stays when the program ends, so it gets its own ways back.
class ConsoleMode {
 public:
  ConsoleMode();
  ~ConsoleMode();
  ConsoleMode(const ConsoleMode&) = delete;
  ConsoleMode& operator=(const ConsoleMode&) = delete;

  /// Standard error is a console that progress can be drawn on.
  bool CanDraw() const { return canDraw_; }

 private:
  UINT codePage_ = 0;  // before; 0 without a console
  DWORD errMode_ = 0;  // before
  bool canDraw_ = false;
};

}  // namespace norvo::cli
