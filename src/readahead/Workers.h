#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace norvo {

/// Threads that all run one function. Whatever it raises ends its thread and nothing else.
class Workers {
 public:
  /// `work` returns soon after it is told to stop. No thread is started yet.
  explicit Workers(std::function<void(std::stop_token)> work) : work_(std::move(work)) {}
  /// Tells all to stop, and waits for them.
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  /// Starts threads until there are so many, as long as the system gives them. From any thread,
  /// those that it has started included.
  void Grow(std::size_t count);

 private:
  void Run(const std::stop_token& stop) const noexcept;

  const std::function<void(std::stop_token)> work_;
  std::mutex mutex_;
  bool ends_ = false;
  std::vector<std::jthread> threads_;
};

}  // namespace norvo
