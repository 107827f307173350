#include "cli/EndWish.h"

#include <windows.h>

#include <atomic>

namespace norvo::cli {
namespace {

std::atomic<bool> wished{false};

/// The system calls it on a thread of its own. True keeps the program from being ended at once.
BOOL WINAPI Note(DWORD event) {
  const bool isFirst = !wished.exchange(true);
  if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) return isFirst ? TRUE : FALSE;
  // The console is closed, or the session ends: that ends the program when this returns, or after
  // some seconds.
  ::Sleep(INFINITE);
  return TRUE;
}

}  // namespace

bool IsEndWished() {
  static const bool isWatched = ::SetConsoleCtrlHandler(Note, TRUE) != FALSE;
  return isWatched && wished;
}

}  // namespace norvo::cli
