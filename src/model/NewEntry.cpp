#include "model/NewEntry.h"

#include "model/AsxEntry.h"
#include "model/PlaylistTypes.h"

namespace norvo {
namespace {

std::shared_ptr<FormatEntry> NewOfKind(Component& component, EntryKind kind) {
  switch (kind) {
    case EntryKind::Asx:
      return std::make_shared<AsxEntry>(component);
    case EntryKind::M3u:
      return std::make_shared<M3UEntry>(component);
    case EntryKind::Pls:
      break;
  }
  return std::make_shared<PlsEntry>(component);
}

}  // namespace

std::shared_ptr<FormatEntry> NewEntry(Component& component, std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  if (row == nullptr) return nullptr;
  std::shared_ptr<FormatEntry> entry = NewOfKind(component, row->entries);
  entry->SetEntryType(type);
  return entry;
}

}  // namespace norvo
