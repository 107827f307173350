#include "model/ArtistList.h"

#include "automation/RunTimeError.h"

namespace norvo {

ArtistList::~ArtistList() {
  // Nodes that refer to each other would keep each other alive for ever.
  for (ArtistItem::Ref item = head_; item; item = item->NextItem()) item->SetPreviousItem(nullptr);
}

ArtistList::Place ArtistList::Find(const String& key) {
  Place place;
  place.current = head_;
  while (place.current && place.current->KeyID() > key) {
    place.previous = place.current;
    place.current = place.current->NextItem();
  }
  place.found = place.current && place.current->KeyID() == key;
  return place;
}

void ArtistList::Add(const Variant& key, const Variant& value) {
  const auto item = std::make_shared<ArtistItem>();
  item->SetValue(ToInt32(value));
  item->SetKeyID(ToText(key));
  const Place place = Find(item->KeyID());
  if (!place.found || allowDuplicates_) {
    Insert(item, place);
  } else if (allowOverWrite_) {
    place.current->SetValue(item->Value());
  }
  if (count_ == INT32_MAX) throw RunTimeError(error::kOverflow);
  ++count_;
}

void ArtistList::Insert(const ArtistItem::Ref& item, const Place& place) {
  if (!place.previous) {
    // The old head gets no link back to the new one: intended.
    item->SetNextItem(head_);
    head_ = item;
    return;
  }
  item->SetPreviousItem(place.previous);
  place.previous->SetNextItem(item);
  item->SetNextItem(place.current);
  if (place.current) place.current->SetPreviousItem(item);
}

bool ArtistList::SearchByID(const Variant& key, Variant& sought) {
  const Place place = Find(ToText(key));
  if (place.found) sought = place.current->Value();
  return place.found;
}

bool ArtistList::SearchByValue(const Variant& value, ArtistItem::Ref& current) {
  current = head_;
  while (current) {
    const double difference = current->Value() - ToDouble(value);
    if (difference < 0) break;
    if (difference > 0) current = current->NextItem();
  }
  return false;
}

const MemberTable& ArtistList::Interface() {
  using A = ArtistList;
  static const MemberTable table(
      u"ArtistList",
      {
          Method<&A::Add>(u"Add", {ByRef(u"vKeyID"), ByRef(u"vNewValue")}),
          Method<&A::Remove>(u"Remove", {ByRef(u"vKeyID")}),
          Method<&A::SearchByID>(u"SearchByID", {In(u"vKeyID"), ByRef(u"vSought")}),
          Method<&A::SearchByValue>(u"SearchByValue", {ByRef(u"vValue"), ByRef(u"Current")}),
          Method<&A::GetFirst>(u"GetFirst"),
          Method<&A::GetNext>(u"GetNext"),
          Method<&A::GetPrevious>(u"GetPrevious"),
          Method<&A::GetLast>(u"GetLast"),
          ReadOnly<&A::Count>(u"Count"),
          Property<&A::AllowDuplicates, &A::SetAllowDuplicates>(u"AllowDuplicates"),
          Property<&A::AllowOverWrite, &A::SetAllowOverWrite>(u"AllowOverWrite"),
      });
  return table;
}

}  // namespace norvo
