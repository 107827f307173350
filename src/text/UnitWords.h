#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace norvo {

/// Questions about all units of a text, answered for a machine word of them at a time: four units
/// of UTF-16, or eight bytes. For the short texts that playlists are made of this takes a third of
/// the instructions of a loop over the units, whatever a compiler makes of it.

/// The unit in each lane of a word.
template <class Unit>
constexpr std::uint64_t InEachLane(Unit unit) noexcept {
  constexpr std::uint64_t kOnes = sizeof(Unit) == 1 ? 0x0101010101010101u : 0x0001000100010001u;
  return kOnes * static_cast<std::make_unsigned_t<Unit>>(unit);
}

/// Bits that are all 0 unless a lane of the word is 0.
template <class Unit>
constexpr std::uint64_t ZeroLanes(std::uint64_t word) noexcept {
  constexpr std::uint64_t kOnes = InEachLane<Unit>(1);
  constexpr std::uint64_t kHighest = kOnes << (8 * sizeof(Unit) - 1);
  return (word - kOnes) & ~word & kHighest;  // only a lane of 0 borrows from its highest bit
}

/// As many units as a word has, from wherever they stand.
template <class Unit>
std::uint64_t WordAt(const Unit* units) noexcept {
  std::uint64_t word = 0;
  std::memcpy(&word, units, sizeof word);
  return word;
}

/// Fewer units than a word has, in a word that `filler` fills up; units may stand there twice.
template <class Unit>
std::uint64_t ShortWord(std::basic_string_view<Unit> text, Unit filler) noexcept {
  constexpr std::size_t kHalf = sizeof(std::uint32_t) / sizeof(Unit);
  std::uint64_t word = InEachLane(filler);
  if (text.size() >= kHalf) {
    std::uint32_t halves[2];
    std::memcpy(&halves[0], text.data(), sizeof halves[0]);
    std::memcpy(&halves[1], text.data() + text.size() - kHalf, sizeof halves[1]);
    std::memcpy(&word, halves, sizeof word);
  } else if (!text.empty()) {
    std::memcpy(&word, text.data(), text.size() * sizeof(Unit));
  }
  return word;
}

/// Whether `bitsOf` gives a bit for any word of the text. The last word overlaps the one before it;
/// a text that is shorter than a word is filled up with `filler`. No word ends the loop, so that a
/// compiler can take several at a time.
template <class Unit, class BitsOf>
bool AnyWord(std::basic_string_view<Unit> text, Unit filler, BitsOf bitsOf) noexcept {
  constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(Unit);
  const Unit* const units = text.data();
  if (text.size() < kUnits) return bitsOf(ShortWord(text, filler)) != 0;
  const std::size_t last = text.size() - kUnits;
  std::uint64_t bits = bitsOf(WordAt(units)) | bitsOf(WordAt(units + last));
  for (std::size_t at = kUnits; at < last; at += kUnits) bits |= bitsOf(WordAt(units + at));
  return bits != 0;
}

/// Whether `isSo` gives 1 for any unit from that position on, and the one before it; else it gives
/// 0. Answers as wide as the units, and a loop that no unit ends, let a compiler take eight at a
/// time.
template <class IsSo>
bool AnyNeighbours(std::u16string_view text, std::size_t from, IsSo isSo) noexcept {
  std::uint16_t any = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    any = static_cast<std::uint16_t>(any | isSo(text[i - 1], text[i]));
  }
  return any != 0;
}

/// 0-based position of the first unit at or after `from` for which `bitsOf` gives a bit, the text's
/// length when there is none. It may give bits for the lanes above that of such a unit, too, as
/// `ZeroLanes` does.
template <class Unit, class BitsOf>
std::size_t FirstLane(std::basic_string_view<Unit> text, std::size_t from, BitsOf bitsOf) noexcept {
  constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(Unit);
  constexpr std::size_t kBits = 8 * sizeof(Unit);
  std::size_t at = std::min(from, text.size());
  if constexpr (std::endian::native == std::endian::little) {  // the first unit is the lowest lane
    const auto lane = [](std::uint64_t bits) {
      return static_cast<std::size_t>(std::countr_zero(bits)) / kBits;
    };
    for (; text.size() - at >= kUnits; at += kUnits) {
      const std::uint64_t bits = bitsOf(WordAt(text.data() + at));
      if (bits != 0) return at + lane(bits);
    }
    if (at < text.size() && text.size() >= kUnits) {
      // The text's last word, without the units before `at`; NULs stand behind it then.
      const std::size_t before = kUnits - (text.size() - at);
      const std::uint64_t word = WordAt(text.data() + text.size() - kUnits) >> (kBits * before);
      const std::uint64_t bits = bitsOf(word);
      return bits != 0 ? std::min(at + lane(bits), text.size()) : text.size();
    }
  }
  while (at < text.size() && bitsOf(InEachLane(text[at])) == 0) ++at;
  return at;
}

}  // namespace norvo
