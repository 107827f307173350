#pragma once

#include <cstdint>

namespace norvo {

/// The step that every hash of the library takes: one value is put in, and a multiplication by an
/// odd constant spreads it to the higher bits. With its own constants it is FNV-1a of 64 bits,
/// whose values here may be whole UTF-16 units instead of bytes.
inline constexpr std::uint64_t kHashStart = 0xcbf29ce484222325u;
inline constexpr std::uint64_t kHashMultiplier = 0x100000001b3u;

constexpr std::uint64_t MixIn(std::uint64_t hash, std::uint64_t value,
                              std::uint64_t multiplier = kHashMultiplier) noexcept {
  return (hash ^ value) * multiplier;
}

/// The hash with its higher half worked into the lower one, for tables that go by the lowest bits.
constexpr std::uint64_t FoldHash(std::uint64_t hash) noexcept {
  return hash ^ (hash >> 32);
}

}  // namespace norvo
