#pragma once

#include <cstdint>

#include "automation/MemberTable.h"
#include "model/ArtistItem.h"

namespace norvo {

/// A doubly linked list of keys and values in descending order of the keys. Keys are compared as
/// texts, case by case. Only adding and searching do something.
class ArtistList final : public TableObject {
 public:
  /// An empty list.
  ArtistList() = default;
  /// Takes the nodes apart: one that somebody still holds has no previous node any more.
  ~ArtistList() override;

  /// Inserts a node, in front of those with an equal key. A key that is there already is not
  /// inserted unless duplicates are allowed; its node takes the value when overwriting is. Errors
  /// 13 and 6 for what does not convert.
  void Add(const Variant& key, const Variant& value);
  /// Does nothing: intended.
  void Remove(const Variant&) {}

  /// True, with `sought` set to the node's value, when there is a node with that key.
  bool SearchByID(const Variant& key, Variant& sought);

  /// Walks from the head to the first node with a smaller value, or to the end, and leaves that in
  /// `current`. Always false. Never returns when it meets a node with an equal value: intended, so
  /// callers must not search for a value that the walk can reach.
  bool SearchByValue(const Variant& value, ArtistItem::Ref& current);

  /// @{
  /// Do nothing and give an empty value: intended.
  Variant GetFirst() { return {}; }
  Variant GetNext() { return {}; }
  Variant GetPrevious() { return {}; }
  Variant GetLast() { return {}; }
  /// @}

  /// Number of calls of `Add`, whether they inserted a node or not: intended.
  std::int32_t Count() { return count_; }
  /// @{
  /// Whether `Add` inserts a key that is there already; false at first.
  bool AllowDuplicates() { return allowDuplicates_; }
  void SetAllowDuplicates(bool value) { allowDuplicates_ = value; }
  /// @}
  /// @{
  /// Whether `Add` gives the node of a key that is there the new value; false at first.
  bool AllowOverWrite() { return allowOverWrite_; }
  void SetAllowOverWrite(bool value) { allowOverWrite_ = value; }
  /// @}

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  /// Where a key stands, or would stand: behind `previous`, at `current`.
  struct Place {
    ArtistItem::Ref previous;
    ArtistItem::Ref current;
    bool found = false;
  };

  Place Find(const String& key);
  void Insert(const ArtistItem::Ref& item, const Place& place);

  ArtistItem::Ref head_;
  std::int32_t count_ = 0;
  bool allowDuplicates_ = false;
  bool allowOverWrite_ = false;
};

}  // namespace norvo
