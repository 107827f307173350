#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace norvo {

/// Stands for a text or bytes where they themselves would take too much room. Two are taken for one
/// only when all 128 bits agree, which no real collection of files will see; whoever wants to can
/// build two that agree, so nothing is trusted by it.
///
/// Fingerprints stand in files, so the algorithm is fixed. It takes values one after the other and
/// has two halves of 64 bits, whose sums and products wrap around:
///
///     first:  starts at 0x243F6A8885A308D3; for each value
///             first = (first xor value) * 0x9E3779B97F4A7C15
///     second: starts at 0x13198A2E03707344; for each value
///             second = (second + value + 1) * 0xD6E8FEB86659FD93
///             second = second xor (second >> 32)
///
/// The starts are digits of pi. The values are the UTF-16 units of a text, the upper case of them
/// (see `ToUpper`) where case does not matter, and the bytes of a file, where a byte from 0x80 on
/// counts as 0xFF00 more. What is added in turn is one sequence: `Separate` puts an end between.
struct Fingerprint {
  std::uint64_t first = 0x243F6A8885A308D3u;
  std::uint64_t second = 0x13198A2E03707344u;

  /// Adds a text behind what was added before; case is ignored.
  Fingerprint& Add(StringView text) noexcept;
  /// The same, with regard to case.
  Fingerprint& AddExact(StringView text) noexcept;
  Fingerprint& AddBytes(std::string_view bytes) noexcept;
  /// Ends a field: "ab" and "c" do not come out as "a" and "bc" do. The value is 0x10000, which no
  /// text holds.
  Fingerprint& Separate() noexcept;

  bool operator==(const Fingerprint&) const = default;
};

/// 32 hexadecimal digits in lower case, those of `first` in front.
std::string TextOf(const Fingerprint& print);

}  // namespace norvo
