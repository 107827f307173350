#include "cli/windows/ConsoleMode.h"

#include <io.h>

#include <cstdio>

namespace norvo::cli {

ConsoleMode::ConsoleMode() : codePage_(::GetConsoleOutputCP()) {
  if (codePage_ != 0) ::SetConsoleOutputCP(CP_UTF8);
  const HANDLE err = ::GetStdHandle(STD_ERROR_HANDLE);
  // The null device passes for a terminal, too, but it has no console mode.
  if (::_isatty(::_fileno(stderr)) == 0 || !::GetConsoleMode(err, &errMode_)) return;
  canDraw_ = ::SetConsoleMode(err, errMode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

ConsoleMode::~ConsoleMode() {
  if (canDraw_) ::SetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), errMode_);
  if (codePage_ != 0) ::SetConsoleOutputCP(codePage_);
}

}  // namespace norvo::cli
