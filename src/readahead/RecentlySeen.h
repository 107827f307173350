#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace norvo {

/// Remembers what was met lately, in little memory: of two things that would stand at one place the
/// later one stays. For any number of threads.
class RecentlySeen {
 public:
  /// True for what is not remembered; it is from now on. What has a fingerprint of 0 is never new.
  bool IsNew(std::uint64_t fingerprint) {
    return places_[fingerprint % kPlaces].exchange(fingerprint, std::memory_order_relaxed) !=
           fingerprint;
  }

 private:
  static constexpr std::size_t kPlaces = 32768;  // 256 KiB, for the songs of a large collection

  std::unique_ptr<std::atomic<std::uint64_t>[]> places_ =
      std::make_unique<std::atomic<std::uint64_t>[]>(kPlaces);
};

}  // namespace norvo
