#include "cli/Terminal.h"

#include <windows.h>

#include <iostream>

namespace norvo::cli {

std::optional<std::size_t> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (!::GetConsoleScreenBufferInfo(::GetStdHandle(STD_ERROR_HANDLE), &screen)) return std::nullopt;
  const int width = screen.srWindow.Right - screen.srWindow.Left + 1;
  return width > 0 ? std::optional<std::size_t>(width) : std::nullopt;
}

bool IsTerminal(const std::ostream& stream) {
  const bool isOut = &stream == &std::cout;
  if (!isOut && &stream != &std::cerr) return false;
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(isOut ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace norvo::cli
