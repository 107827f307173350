#pragma once

#include <cstdint>

#include "automation/MemberTable.h"
#include "model/ObjectList.h"
#include "services/Component.h"

namespace norvo {

/// A client's own collection of playlists, with a running total of their songs. Indexes are
/// 1-based.
class PlayLists final : public TableObject {
 public:
  /// An empty collection of the component, which must outlive it.
  explicit PlayLists(Component& component) : component_(component) {}

  /// Appends any object and adds its `TotalSongs`, read by name, to the total; null is ignored. An
  /// error of that reading, and a total beyond 32 bits (error 6), reach the caller after the object
  /// was appended: intended.
  void Add(const ObjectRef& playList);

  /// The playlist at an index. Shows a message box and gives no object for an index past the end;
  /// error 5 for an index below 1.
  ObjectRef Item(std::int32_t index);

  /// Removes by the pattern of a name; see `ObjectList::RemoveByName`. A `PlayList` has no `Name`,
  /// so a collection of them raises error 438: intended.
  bool Remove(const String& pattern) { return items_.RemoveByName(pattern); }

  /// Number of playlists. Error 6 for more than 32767 playlists.
  std::int16_t Count() const { return items_.Count16(); }
  /// The songs at the time of each adding: neither a removal nor a later change counts. Intended.
  std::int32_t TotalSongs() const { return totalSongs_; }
  /// Number of playlists, however many.
  std::int32_t TotalPlayLists() const { return items_.Count32(); }

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  Component& component_;
  ObjectList items_;
  std::int32_t totalSongs_ = 0;
};

}  // namespace norvo
