#include "cli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

namespace norvo::cli {

std::optional<std::size_t> TerminalWidth() {
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

bool IsTerminal(const std::ostream& stream) {
  if (&stream == &std::cout) return ::isatty(STDOUT_FILENO) == 1;
  return &stream == &std::cerr && ::isatty(STDERR_FILENO) == 1;
}

}  // namespace norvo::cli
