#include "model/EntryText.h"

#include <algorithm>

#include "model/AsxEntry.h"

namespace norvo {
namespace {

const EntryKey& RowOf(StringView property) {
  const std::span<const EntryKey> rows = EntryKeys();
  const auto found = std::find_if(rows.begin(), rows.end(), [property](const EntryKey& row) {
    return SameUnits(row.property, property);
  });
  if (found == rows.end()) throw RunTimeError(error::kNoSuchMember);
  return *found;
}

}  // namespace

FormatEntry* OwnEntry(AutomationObject& entry) {
  const MemberTable* const members = entry.Members();
  const bool isOwn = members == &AsxEntry::Interface() || members == &M3UEntry::Interface() ||
                     members == &PlsEntry::Interface();
  return isOwn ? static_cast<FormatEntry*>(&entry) : nullptr;
}

AsxEntry* OwnAsxEntry(AutomationObject& entry) {
  const bool isOwn = entry.Members() == &AsxEntry::Interface();
  return isOwn ? static_cast<AsxEntry*>(&entry) : nullptr;
}

EntryText::EntryText(StringView property) : row_(RowOf(property)), read_(row_.property) {}

void EntryText::Append(AutomationObject& entry, String& text) {
  const bool isAsxOnly = row_.use == KeyUse::AsxEntries;
  if (FormatEntry* const own = isAsxOnly ? OwnAsxEntry(entry) : OwnEntry(entry)) {
    row_.append(*own, text);
  } else {
    text += ToText(read_(entry));
  }
}

}  // namespace norvo
