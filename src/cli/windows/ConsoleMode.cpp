#include "cli/windows/ConsoleMode.h"

#include <iostream>

#include "cli/Terminal.h"

namespace norvo::cli {

ConsoleMode::Stream::Stream(std::ostream& stream, DWORD handle) : stream_(stream) {
  if (!IsTerminal(stream)) return;
  buffer_.emplace(::GetStdHandle(handle));
  before_ = stream_.rdbuf(&*buffer_);
}

ConsoleMode::Stream::~Stream() {
  if (buffer_) stream_.rdbuf(before_);
}

ConsoleMode::ConsoleMode() : out_(std::cout, STD_OUTPUT_HANDLE), err_(std::cerr, STD_ERROR_HANDLE) {
  const HANDLE err = ::GetStdHandle(STD_ERROR_HANDLE);
  if (!IsTerminal(std::cerr) || !::GetConsoleMode(err, &errMode_)) return;
  canDraw_ = ::SetConsoleMode(err, errMode_ | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

ConsoleMode::~ConsoleMode() {
  if (canDraw_) ::SetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), errMode_);
}

}  // namespace norvo::cli
