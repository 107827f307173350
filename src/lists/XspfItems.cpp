#include "lists/XspfItems.h"

#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/XmlDocument.h"

namespace norvo {
namespace {

struct XspfFieldRow {
  std::string_view name;
  String ListedItem::*field;
};
constexpr XspfFieldRow kXspfFields[] = {
    {"title", &ListedItem::title}, {"creator", &ListedItem::artist}, {"album", &ListedItem::album}};

void TakeDetail(ListedItem& item, pugi::xml_node detail) {
  String text = TextOf(detail);
  if (text.empty()) return;
  if (IsElement(detail, "duration")) item.seconds = SecondsOfMilliseconds(text);
  if (IsElement(detail, "trackNum")) item.track = TrackOf(text);
  for (const XspfFieldRow& row : kXspfFields) {
    if (IsElement(detail, row.name)) item.*row.field = text;
  }
  if (IsElement(detail, "location")) item.references.push_back(std::move(text));
}

void AddTrack(ListedList& list, pugi::xml_node track) {
  ListedItem item;
  for (const pugi::xml_node detail : track.children()) TakeDetail(item, detail);
  if (!item.references.empty()) list.items.Add(std::move(item));
}

}  // namespace

ListedList XspfItems(StringView text, std::size_t most) {
  ListedList list;
  const XmlDocument document(text);
  for (pugi::xml_node node = document.Root(); node && list.items.size() < most;
       node = NextNode(node)) {
    if (IsElement(node, "track")) AddTrack(list, node);
    const bool isName = IsElement(node, "title") && IsElement(node.parent(), "playlist");
    if (isName) list.name = TextOf(node);
  }
  return list;
}

}  // namespace norvo
