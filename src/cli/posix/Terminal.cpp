#include "cli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace norvo::cli {

std::optional<std::size_t> TerminalWidth() {
  winsize size{};
  if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

}  // namespace norvo::cli
