#pragma once

#include <cstdint>

#include "text/Text.h"
#include "text/UnitWords.h"

namespace norvo {

/// A word of ASCII characters in upper case, one in each of the lanes of which `kLanes` has the
/// lowest bits. The highest bit of a lane's lower byte tells whether its character is one from 'a'
/// on and none behind 'z'; moved down it is the bit that is taken away.
template <std::uint64_t kLanes>
constexpr std::uint64_t AsciiInUpperCase(std::uint64_t word) noexcept {
  const std::uint64_t fromA = word + (0x80 - 'a') * kLanes;
  const std::uint64_t behindZ = word + (0x80 - 'z' - 1) * kLanes;
  return word - ((fromA & ~behindZ & 0x80 * kLanes) >> 2);
}

/// A word of UTF-16 units, each as `ToUpper` has it.
inline std::uint64_t InUpperCase(std::uint64_t word) noexcept {
  constexpr std::uint64_t kLanes = InEachLane<char16_t>(1);
  if ((word & 0xFF80 * kLanes) == 0) return AsciiInUpperCase<kLanes>(word);
  std::uint64_t upper = 0;
  for (int shift = 0; shift < 64; shift += 16) {
    upper |= std::uint64_t{ToUpper(static_cast<char16_t>(word >> shift))} << shift;
  }
  return upper;
}

}  // namespace norvo
