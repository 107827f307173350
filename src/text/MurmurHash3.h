#pragma once

#include <bit>
#include <cstdint>
#include <utility>

namespace norvo {

/// MurmurHash3 in its variant of 128 bits for 64-bit machines ("x64_128"), as it was published by
/// Austin Appleby, who gave it to the public domain. It takes the input as numbers of 64 bits,
/// whose lowest byte comes first. It is quick and spreads well, but it does not withstand somebody
/// who looks for two inputs with one hash.
class MurmurHash3 {
 public:
  using Halves = std::pair<std::uint64_t, std::uint64_t>;

  explicit constexpr MurmurHash3(std::uint32_t seed) noexcept : first_(seed), second_(seed) {}

  /// The next 16 bytes.
  constexpr void Add(std::uint64_t low, std::uint64_t high) noexcept {
    first_ = (std::rotl(first_ ^ Low(low), 27) + second_) * 5 + 0x52dce729;
    second_ = (std::rotl(second_ ^ High(high), 31) + first_) * 5 + 0x38495ab5;
  }

  /// The hash of `length` bytes in all, of which the last 0 to 15 come here; zeros stand for those
  /// that are missing.
  constexpr Halves Finish(std::uint64_t low, std::uint64_t high,
                          std::uint64_t length) const noexcept {
    std::uint64_t first = first_ ^ Low(low) ^ length;
    std::uint64_t second = second_ ^ High(high) ^ length;
    first += second;
    second += first;
    first = Spread(first);
    second = Spread(second);
    first += second;
    return {first, second + first};
  }

 private:
  static constexpr std::uint64_t kFirst = 0x87c37b91114253d5u;
  static constexpr std::uint64_t kSecond = 0x4cf5ad432745937fu;

  static constexpr std::uint64_t Low(std::uint64_t word) noexcept {
    return std::rotl(word * kFirst, 31) * kSecond;
  }
  static constexpr std::uint64_t High(std::uint64_t word) noexcept {
    return std::rotl(word * kSecond, 33) * kFirst;
  }
  static constexpr std::uint64_t Spread(std::uint64_t half) noexcept {
    half = (half ^ (half >> 33)) * 0xff51afd7ed558ccdu;
    half = (half ^ (half >> 33)) * 0xc4ceb9fe1a85ec53u;
    return half ^ (half >> 33);
  }

  std::uint64_t first_;
  std::uint64_t second_;
};

}  // namespace norvo
