// Runs a program and kills it at its so-manieth call of a name, over all its threads, before that
// call does anything:
//
//   kill_at CALL NUMBER PROGRAM [ARGUMENT...]
//
// Ends as the program did, with 137 when it was killed; with 77 where no program can be traced.
// Only the calls of that name stop it: a tracer that is told of every call takes ten times as long.

#include <seccomp.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kCannotTrace = 77;

/// Makes the calls of that name stop for the tracer. False where that cannot be.
bool StopAt(const char* call) {
  const scmp_filter_ctx filter = ::seccomp_init(SCMP_ACT_ALLOW);
  const int number = ::seccomp_syscall_resolve_name(call);
  const bool isLoaded = filter != nullptr && number != __NR_SCMP_ERROR &&
                        ::seccomp_rule_add(filter, SCMP_ACT_TRACE(0), number, 0) == 0 &&
                        ::seccomp_load(filter) == 0;
  ::seccomp_release(filter);
  return isLoaded;
}

[[noreturn]] void RunTraced(const char* call, char** command) {
  const bool isTraced = ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0;
  if (!isTraced || ::raise(SIGSTOP) != 0 || !StopAt(call)) ::_exit(kCannotTrace);
  ::execvp(command[0], command);
  std::perror(command[0]);
  ::_exit(2);
}

/// Lets a stopped thread go on with the signal that it was stopped for, if it is one of its own.
void GoOn(pid_t thread, int status) {
  const bool isTold = status >> 16 != 0;           // an event, which is for the tracer alone
  const bool isNew = WSTOPSIG(status) == SIGSTOP;  // how each new thread begins
  const long signal = isTold || isNew ? 0 : WSTOPSIG(status);
  ::ptrace(PTRACE_CONT, thread, nullptr, signal);
}

int Follow(pid_t program, long number) {
  long count = 0;
  for (;;) {
    int status = 0;
    const pid_t thread = ::waitpid(-1, &status, __WALL);
    if (thread < 0) return 2;
    if (WIFSTOPPED(status)) {
      if (status >> 16 == PTRACE_EVENT_SECCOMP && ++count == number) ::kill(program, SIGKILL);
      GoOn(thread, status);
    } else if (thread == program) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) return 2;
  const pid_t program = ::fork();
  if (program == 0) RunTraced(arguments[1], arguments + 3);
  int status = 0;
  if (program < 0 || ::waitpid(program, &status, 0) != program) return kCannotTrace;
  if (!WIFSTOPPED(status)) return kCannotTrace;
  constexpr long kOptions = PTRACE_O_EXITKILL | PTRACE_O_TRACESECCOMP | PTRACE_O_TRACECLONE |
                            PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACEEXEC;
  if (::ptrace(PTRACE_SETOPTIONS, program, nullptr, kOptions) != 0) return kCannotTrace;
  GoOn(program, status);
  return Follow(program, std::atol(arguments[2]));
}
