#pragma once

#include <cstdint>
#include <string>

#include "text/Text.h"

namespace norvo {

/// Stands for a text where the text itself would take too much room. Two texts are
/// taken for one only when all 128 bits agree, which no real collection of files will see.
struct Fingerprint {
  std::uint64_t first = 0x243F6A8885A308D3u;
  std::uint64_t second = 0x13198A2E03707344u;

  /// Adds a text behind those that were added before; case is ignored.
  Fingerprint& Add(StringView text) noexcept;
  /// The same, with regard to case.
  Fingerprint& AddExact(StringView text) noexcept;
  bool operator==(const Fingerprint&) const = default;
};

/// 32 hexadecimal digits.
std::string TextOf(const Fingerprint& print);

}  // namespace norvo
