#include "move/TextPool.h"

#include <algorithm>
#include <functional>

#include "move/Growth.h"

namespace norvo {
namespace {

constexpr std::size_t kBlock = std::size_t{32} * 1024;  // units
constexpr std::size_t kFirstSlots = 1024;               // a power of two, as are all that follow

}  // namespace

TextPool::TextPool() : texts_(1), slots_(kFirstSlots) {}

/// The slot of the text, or the free one where it belongs.
std::size_t TextPool::SlotOf(StringView text) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = std::hash<StringView>()(text) & mask;
  while (slots_[slot] != 0 && !SameUnits(texts_[slots_[slot]], text)) slot = (slot + 1) & mask;
  return slot;
}

TextPool::Id TextPool::Add(StringView text) {
  if (text.empty()) return 0;
  const std::size_t slot = SlotOf(text);
  if (slots_[slot] != 0) return slots_[slot];
  const Id id = slots_[slot] = static_cast<Id>(texts_.size());
  MakeRoom(texts_);
  texts_.push_back(Store(text));
  if (texts_.size() * 2 > slots_.size()) Grow();
  return id;
}

StringView TextPool::Store(StringView text) {
  if (text.size() > free_) {
    free_ = std::max(kBlock, text.size());
    blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(free_));
  }
  // The blocks are filled from their ends.
  free_ -= text.size();
  char16_t* const place = blocks_.back().get() + free_;
  std::copy(text.begin(), text.end(), place);
  return {place, text.size()};
}

void TextPool::Grow() {
  slots_.assign(slots_.size() * 2, 0);
  for (std::size_t id = 1; id < texts_.size(); ++id) {
    slots_[SlotOf(texts_[id])] = static_cast<Id>(id);
  }
}

}  // namespace norvo
