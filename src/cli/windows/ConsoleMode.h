#pragma once

#include <windows.h>

#include <optional>
#include <ostream>

#include "cli/windows/ConsoleBuffer.h"

namespace norvo::cli {

/// While it lives, what goes to a console is shown in every script, and standard error takes what
/// draws the progress. The console stays when the program ends, so it gets its own ways back.
class ConsoleMode {
 public:
  ConsoleMode();
  ~ConsoleMode();
  ConsoleMode(const ConsoleMode&) = delete;
  ConsoleMode& operator=(const ConsoleMode&) = delete;

  /// Standard error is a console that progress can be drawn on.
  bool CanDraw() const { return canDraw_; }

 private:
  /// A standard stream that goes to a console by a buffer of its own; any other is left alone.
  class Stream {
   public:
    Stream(std::ostream& stream, DWORD handle);
    ~Stream();
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

   private:
    std::ostream& stream_;
    std::optional<ConsoleBuffer> buffer_;
    std::streambuf* before_ = nullptr;
  };

  Stream out_;
  Stream err_;
  DWORD errMode_ = 0;  // before
  bool canDraw_ = false;
};

}  // namespace norvo::cli
