#include "text/Fingerprint.h"

namespace norvo {

Fingerprint& Fingerprint::Add(StringView text) noexcept {
  std::uint64_t one = first;
  std::uint64_t other = second;
  for (const char16_t unit : text) {
    const std::uint64_t upper = ToUpper(unit);
    one = (one ^ upper) * 0x9E3779B97F4A7C15u;
    other = (other + upper + 1) * 0xD6E8FEB86659FD93u;
    other ^= other >> 32;
  }
  first = one;
  second = other;
  return *this;
}

}  // namespace norvo
