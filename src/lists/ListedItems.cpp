#include "lists/ListedItems.h"

#include <utility>

#include "lists/AsxItems.h"
#include "lists/B4sItems.h"
#include "lists/ITunesLists.h"
#include "lists/M3uItems.h"
#include "lists/PlsItems.h"
#include "lists/WplItems.h"
#include "lists/XspfItems.h"

namespace norvo {
namespace {

std::vector<ListedList> OneList(ListedList list) {
  std::vector<ListedList> lists;
  lists.push_back(std::move(list));
  return lists;
}

std::vector<ListedList> ReadUpTo(StringView text, ListSyntax syntax, std::size_t most) {
  switch (syntax) {
    case ListSyntax::Asx:
      return OneList(AsxItems(text, most));
    case ListSyntax::M3u:
      return OneList({{}, M3uItems(text, most)});
    case ListSyntax::Pls:
      return OneList({{}, PlsItems(text, most)});
    case ListSyntax::Wpl:
      return OneList(WplItems(text, most));
    case ListSyntax::Xspf:
      return OneList(XspfItems(text, most));
    case ListSyntax::B4s:
      return OneList(B4sItems(text, most));
    case ListSyntax::ITunes:
      break;
  }
  return ITunesLists(text, most);
}

}  // namespace

std::vector<ListedList> ReadLists(StringView text, ListSyntax syntax, std::size_t most) {
  // One more tells whether there are more.
  std::vector<ListedList> lists = ReadUpTo(text, syntax, most + 1);
  for (ListedList& list : lists) {
    if (list.items.size() <= most) continue;
    list.items.RemoveLast();
    list.isCut = true;
  }
  return lists;
}

std::vector<ListedItem> ListItems(StringView text, ListSyntax syntax, std::size_t most) {
  std::vector<ListedItem> items;
  for (const ListedList& list : ReadLists(text, syntax, most)) {
    items.insert(items.end(), list.items.begin(), list.items.end());
  }
  return items;
}

}  // namespace norvo
