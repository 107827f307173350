#include "model/Entries.h"

#include "automation/Attempt.h"

namespace norvo {

void Entries::Add(const ObjectRef& entry) {
  // What cannot be added leaves no trace.
  Attempt([&] {
    if (!entry) throw RunTimeError(error::kObjectNotSet);
    // As numbers, and not rounded before: a script's 3.4 is not 3.
    if (ToDouble(type_(*entry)) != collectionType_) {
      type_(*entry);  // read once more and discarded: a script's object sees two reads
      return;
    }
    items_.Append(entry);
  });
}

const MemberTable& Entries::Interface() {
  static const MemberTable table(
      u"Entries",
      {
          ReadOnly<&Entries::Count>(u"Count"),
          Method<&Entries::Add>(u"Add", {In(u"PlsEntry")}),
          Method<&Entries::Item>(u"Item", {ByRef(u"index")}),
          Method<&Entries::Remove>(u"Remove", {ByRef(u"Name")}),
          Property<&Entries::CollectionType, &Entries::SetCollectionType>(u"CollectionType"),
          ReadOnly<&Entries::TotalSongs>(u"TotalSongs"),
      });
  return table;
}

}  // namespace norvo
