#include "lists/WplItems.h"

#include <utility>

#include "lists/ItemNumbers.h"
#include "lists/XmlDocument.h"

namespace norvo {
namespace {

bool IsMedia(pugi::xml_node node) {
  for (const std::string_view name : {"media", "audio", "video", "ref"}) {
    if (IsElement(node, name)) return true;
  }
  return false;
}

/// A number is one of milliseconds.
double LengthOf(StringView duration) {
  return duration.find(u':') == StringView::npos ? SecondsOfMilliseconds(duration)
                                                 : SecondsOf(duration);
}

void AddItem(ListedList& list, pugi::xml_node media) {
  String source = AttributeOf(media, "src");
  if (source.empty()) return;
  ListedItem& item = list.items.Add();
  item.references.push_back(std::move(source));
  item.title = AttributeOf(media, "trackTitle");
  item.artist = AttributeOf(media, "trackArtist");
  item.album = AttributeOf(media, "albumTitle");
  item.seconds = LengthOf(AttributeOf(media, "duration"));
  if (item.artist.empty()) item.artist = AttributeOf(media, "albumArtist");
}

}  // namespace

ListedList WplItems(StringView text, std::size_t most) {
  ListedList list;
  const XmlDocument document(text);
  for (pugi::xml_node node = document.Root(); node && list.items.size() < most;
       node = NextNode(node)) {
    if (IsMedia(node)) AddItem(list, node);
    const bool isName = list.name.empty() && list.items.empty() && IsElement(node, "title");
    if (isName) list.name = TextOf(node);
  }
  return list;
}

}  // namespace norvo
