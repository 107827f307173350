#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace norvo {

/// Stands for a text or bytes where they themselves would take too much room: their hash of 128
/// bits by text/MurmurHash3.h. Two are taken for one only when all bits agree, which no real
/// collection of files will see; whoever wants to can build two that agree, so nothing is trusted
/// by it. Fingerprints stand in files, so how they are made is fixed.
struct Fingerprint {
  std::uint64_t first = 0;
  std::uint64_t second = 0;

  bool operator==(const Fingerprint&) const = default;
};

/// For tables by fingerprint.
struct FingerprintHash {
  /// Its bits are as good as any.
  std::size_t operator()(const Fingerprint& print) const noexcept {
    return static_cast<std::size_t>(print.first);
  }
};

/// Of bytes, as published; each seed makes a hash of its own.
Fingerprint FingerprintOf(std::string_view bytes, std::uint32_t seed = 0) noexcept;
/// Of a text's bytes in UTF-16, the lower one of each unit first.
Fingerprint FingerprintOf(StringView text) noexcept;
/// Of the text in upper case, see `Fold`.
Fingerprint CaselessFingerprintOf(StringView text) noexcept;
/// The same for a text of ASCII characters only.
Fingerprint CaselessFingerprintOfAscii(std::string_view text) noexcept;
/// Of the bytes in upper case: half the work, and another fingerprint than that of the text.
Fingerprint CaselessFingerprintOfBytes(std::string_view ascii) noexcept;

/// Of several fields, told apart where they end: "ab" and "c" do not come out as "a" and "bc" do.
/// It is that of the fields' fingerprints, 16 bytes each, `first` in front and the lowest byte of
/// each half first.
Fingerprint FingerprintOf(std::span<const Fingerprint> fields) noexcept;
Fingerprint FingerprintOf(std::initializer_list<Fingerprint> fields) noexcept;

/// 32 hexadecimal digits in lower case, those of `first` in front.
std::string TextOf(const Fingerprint& print);

}  // namespace norvo
