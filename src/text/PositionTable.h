#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace norvo {

/// Finds things that stand in a row elsewhere, by their hashes: it holds their positions in the row
/// and nothing else, so that finding a thing takes 5 to 11 bytes, where a hash map of the standard
/// library takes 40 and the key once more. The hashes are to differ in their lowest bits.
class PositionTable {
 public:
  /// Position of the thing of that hash for which `isIt(position)` holds.
  template <class IsIt>
  std::optional<std::size_t> Find(std::uint64_t hash, IsIt&& isIt) const {
    if (slots_.empty()) return std::nullopt;
    const Slot found = slots_[PlaceOf(hash, isIt)];
    return found == kFree ? std::nullopt : std::optional<std::size_t>(found - 1);
  }

  /// Makes room for so many positions in all; `hashOf(position)` tells the hash of each that is
  /// there.
  template <class HashOf>
  void Reserve(std::size_t positions, HashOf&& hashOf) {
    if (positions > kMost) throw std::length_error("too many positions");
    std::size_t slots = slots_.empty() ? kFirstSlots : slots_.size();
    // A quarter of the slots stays free, so that probing stays short.
    while (positions * 4 > slots * 3) slots *= 2;
    if (slots != slots_.size()) Resize(slots, hashOf);
  }

  /// Adds the position of a thing of that hash, which is not there yet, and for which there is
  /// room.
  void Add(std::size_t position, std::uint64_t hash) noexcept {
    slots_[PlaceOf(hash, IsNone)] = static_cast<Slot>(position + 1);
    ++size_;
  }

  /// How many there are.
  std::size_t Size() const noexcept { return size_; }

  void Clear() noexcept {
    slots_.clear();
    size_ = 0;
  }

 private:
  using Slot = std::uint32_t;  // a position + 1
  static constexpr Slot kFree = 0;
  static constexpr std::size_t kFirstSlots = 64;
  static constexpr std::size_t kMost = UINT32_MAX / 4;

  static bool IsNone(std::size_t) { return false; }

  /// The slot of the thing that is sought, or the free one where it belongs. There must be a free
  /// one.
  template <class IsIt>
  std::size_t PlaceOf(std::uint64_t hash, IsIt&& isIt) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = static_cast<std::size_t>(hash) & mask;
    while (slots_[place] != kFree && !isIt(std::size_t{slots_[place] - 1})) {
      place = (place + 1) & mask;
    }
    return place;
  }

  template <class HashOf>
  void Resize(std::size_t slots, HashOf&& hashOf) {
    std::vector<Slot> old(slots);
    old.swap(slots_);
    for (const Slot slot : old) {
      if (slot != kFree) slots_[PlaceOf(hashOf(std::size_t{slot - 1}), IsNone)] = slot;
    }
  }

  std::vector<Slot> slots_;  // as many as a power of two
  std::size_t size_ = 0;
};

}  // namespace norvo
