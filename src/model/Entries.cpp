#include "model/Entries.h"

namespace norvo {

void Entries::Add(const ObjectRef& entry) {
  constexpr StringView kType = u"Entry_EntryType";
  try {
    Guarded([&] {
      if (!entry) throw RunTimeError(error::kObjectNotSet);
      if (ToInt32(entry->Get(kType)) != collectionType_) {
        entry->Get(kType);  // read once more and discarded: a script's object sees two reads
        return;
      }
      items_.push_back(entry);
    });
  } catch (const RunTimeError&) {
    // What cannot be added leaves no trace.
  }
}

ObjectRef Entries::Item(std::int32_t index) const {
  if (index > TotalSongs()) return nullptr;
  if (index < 1) throw RunTimeError(error::kInvalidArgument);
  return items_[static_cast<std::size_t>(index) - 1];
}

bool Entries::Remove(const String& pattern) {
  const std::int16_t count = Count();
  for (std::int16_t i = 0; i < count; ++i) {
    const auto position = items_.begin() + i;
    if (Like(ToText((*position)->Get(u"Name")), pattern, Compare::Binary)) {
      items_.erase(position);
      break;
    }
  }
  return false;
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
