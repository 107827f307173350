#include "text/FingerprintIndex.h"

#include <utility>

namespace norvo {
namespace {

constexpr std::size_t kFirstSlots = 64;

}  // namespace

std::size_t FingerprintIndex::Place(const Fingerprint& print) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = static_cast<std::size_t>(print.first) & mask;
  while (slots_[place].used && slots_[place].print != print) place = (place + 1) & mask;
  return place;
}

std::optional<std::uint32_t> FingerprintIndex::Find(const Fingerprint& print) const noexcept {
  if (slots_.empty()) return std::nullopt;
  const Slot& slot = slots_[Place(print)];
  return slot.used ? std::optional(slot.number) : std::nullopt;
}

bool FingerprintIndex::Insert(const Fingerprint& print, std::uint32_t number) {
  // A quarter of the slots stays free, so that probing stays short.
  if ((size_ + 1) * 4 > slots_.size() * 3) Grow();
  Slot& slot = slots_[Place(print)];
  if (slot.used) return false;
  slot = {print, number, true};
  ++size_;
  return true;
}

void FingerprintIndex::Grow() {
  std::vector<Slot> old(slots_.empty() ? kFirstSlots : slots_.size() * 2);
  std::swap(old, slots_);
  for (const Slot& slot : old) {
    if (slot.used) slots_[Place(slot.print)] = slot;
  }
}

void FingerprintIndex::Clear() {
  slots_.clear();
  size_ = 0;
}

}  // namespace norvo
