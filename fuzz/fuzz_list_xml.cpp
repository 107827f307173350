// Any text as the items of a list that is XML, of the kind that its length chooses.
#include "ListChecks.h"
#include "text/Encoding.h"

namespace {

using namespace norvo;

/// A library may list one song in many lists, so that its items have no bound.
void CheckLibrary(StringView text) {
  std::size_t items = 0;
  for (const ListedList& list : ReadLists(text, ListSyntax::ITunes)) {
    items += list.items.size();
    for (const ListedItem& item : list.items) CheckItem(item);
  }
  Require(items <= text.size() && ListItems(text, ListSyntax::ITunes, 1).size() <= 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = FromUtf8Lossy(AsBytes(data, size));
  constexpr ListSyntax kKinds[] = {ListSyntax::Wpl, ListSyntax::Xspf, ListSyntax::B4s};
  const std::size_t kind = size % (std::size(kKinds) + 1);
  if (kind == std::size(kKinds)) {
    CheckLibrary(text);
  } else {
    CheckList(text, kKinds[kind]);
  }
  return 0;
}
