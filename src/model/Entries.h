#pragma once

#include <cstdint>
#include <vector>

#include "automation/MemberTable.h"

namespace norvo {

/// The entries of one playlist, in the order of their adding. Indexes are 1-based.
class Entries final : public TableObject {
 public:
  /// Error 6 for more than 32767 entries.
  std::int16_t Count() const { return CountToInt16(items_.size()); }
  std::int32_t TotalSongs() const { return CountToInt32(items_.size()); }

  /// Appends an object whose `Entry_EntryType`, read by name, equals the collection type. Any
  /// other object, and one that fails, is dropped without a word.
  void Add(const ObjectRef& entry);

  /// No object for an index past the end; error 5 for an index below 1.
  ObjectRef Item(std::int32_t index) const;

  /// Removes the first item whose `Name`, read by name, matches the pattern. Always false, also
  /// after a removal; an item without `Name` raises error 438. Both intended.
  bool Remove(const String& pattern);

  std::int32_t CollectionType() const { return collectionType_; }
  void SetCollectionType(std::int32_t value) { collectionType_ = value; }

  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  std::vector<ObjectRef> items_;
  std::int32_t collectionType_ = 0;
};

}  // namespace norvo
