#pragma once

#include <cstdint>

#include "automation/MemberTable.h"
#include "automation/RunTimeError.h"
#include "model/ObjectList.h"

namespace norvo {

/// The entries of one playlist, in the order of their adding. Indexes are 1-based.
class Entries final : public TableObject {
 public:
  /// Number of entries. Error 6 for more than 32767.
  std::int16_t Count() const { return items_.Count16(); }
  /// Number of entries, however many.
  std::int32_t TotalSongs() const { return items_.Count32(); }

  /// Appends an object whose `Entry_EntryType`, read by name, equals the collection type. Any
  /// other object, and one that fails, is dropped without a word.
  void Add(const ObjectRef& entry);

  /// The entry at a 1-based index. No object for an index past the end; error 5 for an index
  /// below 1.
  ObjectRef Item(std::int32_t index) const { return items_.At(index); }

  /// Calls `visit(entry, index)` for each entry that is there now. Error 91 for one that is gone
  /// when its turn comes: a host's own object may remove entries while it is asked.
  template <class Visit>
  void ForEach(Visit&& visit) const {
    const std::int16_t count = Count();
    for (std::int32_t i = 1; i <= count; ++i) {
      const ObjectRef entry = Item(i);
      if (!entry) throw RunTimeError(error::kObjectNotSet);
      visit(*entry, i);
    }
  }

  /// Removes an entry by the pattern of its name; see `ObjectList::RemoveByName`.
  bool Remove(const String& pattern) { return items_.RemoveByName(pattern); }

  /// @{
  /// Type of the entries that `Add` takes, one of playlist_type.
  std::int32_t CollectionType() const { return collectionType_; }
  void SetCollectionType(std::int32_t value) { collectionType_ = value; }
  /// @}

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  ObjectList items_;
  PropertyReader type_{u"Entry_EntryType"};
  std::int32_t collectionType_ = 0;
};

}  // namespace norvo
