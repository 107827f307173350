#include "cli/EndWish.h"

#include <atomic>
#include <csignal>

namespace norvo::cli {
namespace {

std::atomic<bool> wished{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal's handler may not wait");

void Note(int) {
  wished = true;
}

void Watch(int signal) {
  struct sigaction before {};
  // Who starts a program in the background may have it ignore what ends that in front.
  if (::sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction noting {};
  noting.sa_handler = Note;
  ::sigemptyset(&noting.sa_mask);
  noting.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  ::sigaction(signal, &noting, nullptr);
}

bool WatchAll() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) Watch(signal);
  return true;
}

}  // namespace

bool IsEndWished() {
  static const bool isWatched = WatchAll();
  return isWatched && wished;
}

}  // namespace norvo::cli
