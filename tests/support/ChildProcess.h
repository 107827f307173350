#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace norvo {

/// Runs the work in a process of its own, which ends by it; its `waitpid` status.
inline int StatusOfChild(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    int result = 100;
    try {
      result = work();
    } catch (...) {
    }
    ::_exit(result);
  }
  int status = -1;
  if (child > 0) ::waitpid(child, &status, 0);
  return status;
}

/// What a child answers that finds its test impossible here.
constexpr int kSkip = 99;

/// What the work answers; -1 when it does not come to that.
inline int ExitOfChild(const std::function<int()>& work) {
  const int status = StatusOfChild(work);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace norvo
