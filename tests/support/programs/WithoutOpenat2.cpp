// Runs a program on a system that refuses openat2(2), as old ones and some containers do:
//
//   without_openat2 PROGRAM [ARGUMENT...]
//
// Exit code 77 where no call can be refused.

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "support/RefusedCalls.h"

int main(int, char** arguments) {
  if (arguments[1] == nullptr) return 2;
  if (!norvo::RefuseCalls({{SYS_openat2, ENOSYS}})) return 77;
  ::execvp(arguments[1], arguments + 1);
  std::perror(arguments[1]);
  return 2;
}
