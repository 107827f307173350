#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "cli/Program.h"

namespace {

/// A standard stream that was closed at the start would otherwise lend its number to the first file
/// that is opened, and the report would go into that file.
void OccupyStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) >= 0) continue;
    // Standard output is opened in a way that makes every write fail, so that the loss is told.
    const int flags = descriptor == STDOUT_FILENO ? O_RDONLY : O_RDWR;
    if (::open("/dev/null", flags) < 0) return;
  }
}

/// What a large table has taken goes back to the system when it is freed. The allocator would learn
/// to keep it, and the next one would come on top: 11 of 258 MiB of the largest move.
void GiveBackLargeTables() {
#ifdef M_MMAP_THRESHOLD
  ::mallopt(M_MMAP_THRESHOLD, 256 * 1024);
#endif
}

}  // namespace

int main(int count, char** words) {
  OccupyStandardStreams();
  GiveBackLargeTables();
  // A reader that goes away shows as a failed write, not as a sudden end.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  char** const end = words + count;
  // Who starts the program may leave out even its name.
  return norvo::cli::Run({std::min(words + 1, end), end}, std::cout, std::cerr,
                         ::isatty(STDERR_FILENO) == 1);
}
