#include "lists/B4sItems.h"

#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/ItemText.h"
#include "lists/XmlDocument.h"

namespace norvo {
namespace {

void AddEntry(ListedList& list, pugi::xml_node entry) {
  String reference = AttributeOf(entry, "Playstring");
  if (reference.empty()) return;
  ListedItem& item = list.items.Add();
  item.references.push_back(std::move(reference));
  for (const pugi::xml_node detail : entry.children()) {
    if (IsElement(detail, "Name")) SetNames(item, TextOf(detail));
    if (IsElement(detail, "Length")) item.seconds = SecondsOfMilliseconds(TextOf(detail));
  }
}

}  // namespace

ListedList B4sItems(StringView text, std::size_t most) {
  ListedList list;
  const XmlDocument document(text);
  for (pugi::xml_node node = document.Root(); node && list.items.size() < most;
       node = NextNode(node)) {
    if (IsElement(node, "entry")) AddEntry(list, node);
    const bool isNamed = list.name.empty() && IsElement(node, "playlist");
    if (isNamed) list.name = AttributeOf(node, "label");
  }
  return list;
}

}  // namespace norvo
