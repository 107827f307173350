#include "text/Fingerprint.h"

#include <cstdio>

#include "text/HashMixer.h"

namespace norvo {
namespace {

constexpr std::uint64_t kFirstMultiplier = 0x9E3779B97F4A7C15u;
constexpr std::uint64_t kSecondMultiplier = 0xD6E8FEB86659FD93u;
constexpr std::uint64_t kFieldEnd = 0x10000;

void MixValue(std::uint64_t& first, std::uint64_t& second, std::uint64_t value) noexcept {
  first = MixIn(first, value, kFirstMultiplier);
  second = FoldHash((second + value + 1) * kSecondMultiplier);
}

/// The halves stay in registers all the while.
template <class Units, class Map>
Fingerprint& MixAll(Fingerprint& print, Units units, Map map) noexcept {
  std::uint64_t first = print.first;
  std::uint64_t second = print.second;
  for (const auto unit : units) MixValue(first, second, map(unit));
  print.first = first;
  print.second = second;
  return print;
}

}  // namespace

Fingerprint& Fingerprint::Add(StringView text) noexcept {
  return MixAll(*this, text, ToUpper);
}

Fingerprint& Fingerprint::AddExact(StringView text) noexcept {
  return MixAll(*this, text, [](char16_t unit) { return unit; });
}

Fingerprint& Fingerprint::AddBytes(std::string_view bytes) noexcept {
  return MixAll(*this, bytes, [](char byte) {
    // Sign-extended, on every machine: the fingerprints that stand in files were made so.
    return static_cast<char16_t>(static_cast<signed char>(byte));
  });
}

Fingerprint& Fingerprint::Separate() noexcept {
  MixValue(first, second, kFieldEnd);
  return *this;
}

std::string TextOf(const Fingerprint& print) {
  char text[40];
  std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(print.first),
                static_cast<unsigned long long>(print.second));
  return text;
}

}  // namespace norvo
