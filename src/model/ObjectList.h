#pragma once

#include <cstdint>
#include <vector>

#include "automation/AutomationObject.h"
#include "automation/Conversions.h"

namespace norvo {

/// What the collections share: object references in the order of their adding. Indexes are 1-based.
class ObjectList {
 public:
  /// Adds a reference at the end.
  void Append(const ObjectRef& object) { items_.push_back(object); }

  /// Number of items. Error 6 for more than 32767 items.
  std::int16_t Count16() const { return CountToInt16(items_.size()); }
  /// Number of items.
  std::int32_t Count32() const { return CountToInt32(items_.size()); }

  /// The item at an index. No object for an index past the end; error 5 for an index below 1.
  ObjectRef At(std::int32_t index) const;

  /// Removes the first item whose `Name`, read by name, matches the pattern. Always false, also
  /// after a removal; an item without `Name` raises error 438. Both intended.
  bool RemoveByName(const String& pattern);

 private:
  std::vector<ObjectRef> items_;
};

}  // namespace norvo
