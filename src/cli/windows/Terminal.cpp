#include "cli/Terminal.h"

#include <windows.h>

namespace norvo::cli {

std::optional<std::size_t> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (!::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &screen)) return std::nullopt;
  const int width = screen.srWindow.Right - screen.srWindow.Left + 1;
  return width > 0 ? std::optional<std::size_t>(width) : std::nullopt;
}

}  // namespace norvo::cli
