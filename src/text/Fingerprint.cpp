#include "text/Fingerprint.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>
#include <type_traits>

#include "text/MurmurHash3.h"
#include "text/UpperCaseWords.h"

namespace norvo {
namespace {

// A word holds 8 bytes of the input; of a text these are four units, each in a lane of its own.
constexpr std::uint64_t kEachLane = 0x0001000100010001u;
constexpr std::uint64_t kEachByte = 0x0101010101010101u;

Fingerprint Finished(const MurmurHash3& hash, std::uint64_t low, std::uint64_t high,
                     std::size_t length) noexcept {
  const auto [first, second] = hash.Finish(low, high, length);
  return {first, second};
}

/// The units in lanes of so many bits, the first one lowest.
template <int kBits, class Unit>
std::uint64_t WordOf(const Unit* units, std::size_t count) noexcept {
  std::uint64_t word = 0;
  if constexpr (std::endian::native == std::endian::little && sizeof(Unit) * 8 == kBits) {
    if (count > 0) std::memcpy(&word, units, count * sizeof(Unit));  // they lie as the lanes do
    return word;
  }
  for (std::size_t i = 0; i < count; ++i) {
    word |= std::uint64_t{static_cast<std::make_unsigned_t<Unit>>(units[i])} << (kBits * i);
  }
  return word;
}

/// Hashes units that take so many bits each, word by word; `map` says what each word counts as.
template <int kBits, class Unit, class Map>
Fingerprint HashOf(std::basic_string_view<Unit> text, std::uint32_t seed, Map map) noexcept {
  constexpr std::size_t kUnits = 64 / kBits;
  const std::size_t length = text.size() * kBits / 8;
  MurmurHash3 hash(seed);
  const Unit* at = text.data();
  std::size_t left = text.size();
  for (; left >= 2 * kUnits; at += 2 * kUnits, left -= 2 * kUnits) {
    hash.Add(map(WordOf<kBits>(at, kUnits)), map(WordOf<kBits>(at + kUnits, kUnits)));
  }
  const std::size_t low = std::min(left, kUnits);
  return Finished(hash, map(WordOf<kBits>(at, low)), map(WordOf<kBits>(at + low, left - low)),
                  length);
}

std::uint64_t Same(std::uint64_t word) noexcept {
  return word;
}

}  // namespace

Fingerprint FingerprintOf(std::string_view bytes, std::uint32_t seed) noexcept {
  return HashOf<8>(bytes, seed, Same);
}

Fingerprint FingerprintOf(StringView text) noexcept {
  return HashOf<16>(text, 0, Same);
}

Fingerprint CaselessFingerprintOf(StringView text) noexcept {
  return HashOf<16>(text, 0, InUpperCase);
}

Fingerprint CaselessFingerprintOfAscii(std::string_view text) noexcept {
  return HashOf<16>(text, 0, AsciiInUpperCase<kEachLane>);
}

Fingerprint CaselessFingerprintOfBytes(std::string_view ascii) noexcept {
  return HashOf<8>(ascii, 0, AsciiInUpperCase<kEachByte>);
}

Fingerprint FingerprintOf(std::span<const Fingerprint> fields) noexcept {
  MurmurHash3 hash(0);
  for (const Fingerprint& field : fields) hash.Add(field.first, field.second);
  return Finished(hash, 0, 0, fields.size_bytes());
}

Fingerprint FingerprintOf(std::initializer_list<Fingerprint> fields) noexcept {
  return FingerprintOf(std::span(fields.begin(), fields.size()));
}

std::string TextOf(const Fingerprint& print) {
  char text[40];
  std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(print.first),
                static_cast<unsigned long long>(print.second));
  return text;
}

}  // namespace norvo
