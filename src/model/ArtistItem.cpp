#include "model/ArtistItem.h"

#include <utility>
#include <vector>

namespace norvo {

ArtistItem::~ArtistItem() {
  std::vector<Ref> waiting;
  const auto takeNeighbours = [&waiting](ArtistItem& item) {
    for (Ref* const link : {&item.next_, &item.previous_}) {
      if (*link) waiting.push_back(std::move(*link));
    }
  };
  takeNeighbours(*this);
  while (!waiting.empty()) {
    const Ref item = std::move(waiting.back());
    waiting.pop_back();
    if (item.use_count() == 1) takeNeighbours(*item);
  }
}

const MemberTable& ArtistItem::Interface() {
  using A = ArtistItem;
  static const MemberTable table(
      u"ArtistItem",
      {
          Property<&A::RawValue, &A::SetRawValue>(u"mValue"),
          Property<&A::RawKeyID, &A::SetRawKeyID>(u"mKeyID"),
          Property<&A::NextItem, &A::SetNextItem>(u"mNextItem"),
          Property<&A::PreviousItem, &A::SetPreviousItem>(u"mPreviousItem"),
          LetByReference(Property<&A::Value, &A::SetValue>(u"Value")),
          LetByReference(Property<&A::KeyID, &A::SetKeyID>(u"KeyID")),
          LetByReference(Property<&A::NextItem, &A::SetNextItem>(u"NextItem")),
          LetByReference(Property<&A::PreviousItem, &A::SetPreviousItem>(u"PreviousItem")),
      });
  return table;
}

}  // namespace norvo
