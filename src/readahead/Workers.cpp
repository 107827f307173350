#include "readahead/Workers.h"

#include <utility>

namespace norvo {

Workers::~Workers() {
  std::vector<std::jthread> threads;
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
    threads = std::move(threads_);
  }
  for (std::jthread& thread : threads) thread.request_stop();
}

void Workers::Grow(std::size_t count) {
  const std::lock_guard lock(mutex_);
  if (ends_) return;
  try {
    while (threads_.size() < count) {
      threads_.emplace_back([this](const std::stop_token& stop) { Run(stop); });
    }
  } catch (...) {
    // As many as there are do it, be it none.
  }
}

void Workers::Run(const std::stop_token& stop) const noexcept {
  try {
    work_(stop);
  } catch (...) {
    // What is not read ahead is read when its time comes.
  }
}

}  // namespace norvo
