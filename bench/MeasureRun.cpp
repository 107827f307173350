// Runs one program and writes what it took, as one line of JSON, to the given file. A small
// launcher of its own: a child's largest memory use is never reported below that of the
// process that started it, so a scripting language's own size would hide a small program's.

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

namespace norvo::bench {
namespace {

constexpr int kStartFailed = 127;

struct Outcome {
  int exitCode = kStartFailed;
  double wallSeconds = 0;
  rusage usage{};
};

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

bool Measure(char** command, Outcome& outcome) {
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    execv(command[0], command);
    _exit(kStartFailed);
  }
  int status = 0;
  if (wait4(child, &status, 0, &outcome.usage) != child) return false;
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  outcome.wallSeconds = wall.count();
  outcome.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return true;
}

bool WriteOutcome(const char* path, const Outcome& outcome) {
  std::FILE* file = std::fopen(path, "w");
  if (file == nullptr) return false;
  std::fprintf(file,
               "{\"exit\": %d, \"wall\": %.6f, \"user\": %.6f, \"sys\": %.6f, \"rss\": %ld}\n",
               outcome.exitCode, outcome.wallSeconds, Seconds(outcome.usage.ru_utime),
               Seconds(outcome.usage.ru_stime), outcome.usage.ru_maxrss);
  return std::fclose(file) == 0;
}

}  // namespace
}  // namespace norvo::bench

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: measure_run RESULT-FILE PROGRAM [ARGUMENTS]\n", stderr);
    return 2;
  }
  norvo::bench::Outcome outcome;
  if (!norvo::bench::Measure(argv + 2, outcome) || !norvo::bench::WriteOutcome(argv[1], outcome)) {
    std::perror("measure_run");
    return 1;
  }
  return 0;
}
