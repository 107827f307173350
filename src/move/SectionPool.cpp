#include "move/SectionPool.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "move/Growth.h"

namespace norvo {
namespace {

constexpr std::size_t kFirstSlots = 1024;  // a power of two, as are all that follow

std::size_t HashOf(std::span<const SectionPool::Line> lines) {
  const auto bytes = std::as_bytes(lines);
  return std::hash<std::string_view>()(
      {reinterpret_cast<const char*>(bytes.data()), bytes.size()});  // a line has no padding
}

}  // namespace

SectionPool::SectionPool(std::shared_ptr<TextPool> texts)
    : texts_(std::move(texts)), starts_(2), slots_(kFirstSlots) {}

std::span<const SectionPool::Line> SectionPool::Lines(Id id) const {
  return std::span(lines_).subspan(starts_[id], starts_[id + 1] - starts_[id]);
}

/// The slot of the section, or the free one where it belongs.
std::size_t SectionPool::SlotOf(std::span<const Line> lines) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = HashOf(lines) & mask;
  const auto isOther = [&](Id id) {
    const std::span<const Line> known = Lines(id);
    return !std::equal(known.begin(), known.end(), lines.begin(), lines.end());
  };
  while (slots_[slot] != 0 && isOther(slots_[slot])) slot = (slot + 1) & mask;
  return slot;
}

SectionPool::Id SectionPool::Add(std::span<const Line> lines) {
  if (lines.empty()) return 0;
  const std::size_t slot = SlotOf(lines);
  if (slots_[slot] != 0) return slots_[slot];
  const Id id = slots_[slot] = static_cast<Id>(starts_.size() - 1);
  MakeRoom(lines_, lines.size());
  lines_.insert(lines_.end(), lines.begin(), lines.end());
  MakeRoom(starts_);
  starts_.push_back(static_cast<std::uint32_t>(lines_.size()));
  if (starts_.size() * 2 > slots_.size()) Grow();
  return id;
}

void SectionPool::Grow() {
  slots_.assign(slots_.size() * 2, 0);
  for (Id id = 1; id + 1 < starts_.size(); ++id) slots_[SlotOf(Lines(id))] = id;
}

}  // namespace norvo
