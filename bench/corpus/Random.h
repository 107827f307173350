#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace norvo::bench {

/** Random numbers that depend on the seed alone, on every platform. */
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  /** A number from 0 to limit - 1; the limit is at least 1. */
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }

  /** A number from first to last, both included. */
  std::size_t Between(std::size_t first, std::size_t last) {
    return first + Below(last - first + 1);
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace norvo::bench
