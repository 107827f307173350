#include "model/ObjectList.h"

#include "automation/RunTimeError.h"

namespace norvo {

ObjectRef ObjectList::At(std::int32_t index) const {
  if (index > Count32()) return nullptr;
  if (index < 1) throw RunTimeError(error::kInvalidArgument);
  return items_[static_cast<std::size_t>(index) - 1];
}

bool ObjectList::RemoveByName(const String& pattern) {
  const std::int16_t count = Count16();
  for (std::int32_t i = 1; i <= count; ++i) {
    // Held while it is asked: a script's own object may change this list meanwhile.
    const ObjectRef item = At(i);
    if (!item) break;
    if (!Like(ToText(item->Get(u"Name")), pattern, Compare::Binary)) continue;
    if (i <= Count32()) items_.erase(items_.begin() + (i - 1));
    break;
  }
  return false;
}

}  // namespace norvo
