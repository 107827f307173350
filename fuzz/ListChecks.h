#pragma once

#include <cmath>

#include "Fuzzing.h"
#include "lists/ItemText.h"
#include "lists/ListedItems.h"

namespace norvo {

/// What holds of every item that a list lists.
inline void CheckItem(const ListedItem& item) {
  Require(!item.references.empty());
  for (const String& reference : item.references) {
    Require(!reference.empty() && CleanText(reference).size() == reference.size());
  }
  Require(item.track >= 0 && item.seconds >= 0 && std::isfinite(item.seconds));
}

inline std::size_t UnitsOf(const ListedItem& item) {
  std::size_t units = item.title.size() + item.artist.size() + item.album.size();
  for (const String& reference : item.references) units += reference.size();
  return units;
}

/// Reads a text as one list, whose items are no more than the text has room for, and once more up
/// to its first item.
inline void CheckList(StringView text, ListSyntax syntax) {
  const std::vector<ListedList> lists = ReadLists(text, syntax);
  Require(lists.size() == 1);
  std::size_t units = 0;
  for (const ListedItem& item : lists.front().items) {
    CheckItem(item);
    units += UnitsOf(item);
  }
  Require(lists.front().items.size() <= text.size() && units <= 2 * text.size());
  const std::vector<ListedItem> first = ListItems(text, syntax, 1);
  Require(first.size() == (lists.front().items.empty() ? 0 : 1));
  Require(first.empty() || first.front().references == lists.front().items.front().references);
}

}  // namespace norvo
