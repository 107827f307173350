#pragma once

#include <cstdint>

namespace norvo {

/// FNV-1a of 64 bits: one value is put in, and a multiplication spreads it to the higher bits. The
/// values may be whole UTF-16 units instead of bytes. It suits short keys of tables in memory; what
/// is to stand for a text has a Fingerprint.
inline constexpr std::uint64_t kHashStart = 0xcbf29ce484222325u;

constexpr std::uint64_t MixIn(std::uint64_t hash, std::uint64_t value) noexcept {
  return (hash ^ value) * 0x100000001b3u;
}

/// The hash with its higher half worked into the lower one, for tables that go by the lowest bits.
constexpr std::uint64_t FoldHash(std::uint64_t hash) noexcept {
  return hash ^ (hash >> 32);
}

}  // namespace norvo
