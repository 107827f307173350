#include "readers/ItemResolver.h"

#include "readers/ExtendedInfo.h"
#include "services/Logging.h"

namespace norvo {

ItemResolver::ItemResolver(Component& component, PlaylistRecord& playlist, String folder,
                           ResolverMessages messages)
    : component_(component),
      playlist_(playlist),
      folder_(std::move(folder)),
      messages_(messages),
      destinations_(DataCop::LoadDestinations(component)) {}

std::optional<ItemResolver::Item> ItemResolver::Judge(FormatEntry& entry, StringView reference) {
  Item item{String(reference), DataCop::Status::Ok};
  std::int32_t type = url_type::kFixedDrive;
  std::optional<FileFacts> facts;
  item.status = DataCop::GetGenValue(component_, item.reference, folder_, type, &facts);
  if (type == url_type::kUnusable) {
    WriteLog(component_, String(messages_.fileNotFound) + item.reference);
    component_.Watcher().OnItem(item.reference, ItemOutcome::Missing);
    return std::nullopt;
  }
  entry.SetUrltype(type);
  entry.SetSource(item.reference, facts);
  return item;
}

void ItemResolver::Complete(const std::shared_ptr<FormatEntry>& entry, const Item& item,
                            StringView info, StringView label) {
  if (ReadExtendedInfo(info, *entry, playlist_.type)) entry->SetHasExtendedInfo(true);
  component_.Watcher().OnItem(item.reference, AddOrDrop(entry, item, label));
}

ItemOutcome ItemResolver::AddOrDrop(const std::shared_ptr<FormatEntry>& entry, const Item& item,
                                    StringView label) {
  switch (item.status) {
    case DataCop::Status::Ok:
      if (!Register(*entry, item.reference, label)) return ItemOutcome::NotRegistered;
      break;
    case DataCop::Status::Accepted:
      entry->SetUrltype(url_type::kInternet);
      break;
    case DataCop::Status::FileNotFound:
      WriteLog(component_, String(messages_.fileNotFound) + item.reference);
      return ItemOutcome::Missing;
    case DataCop::Status::NotMedia:
      WriteLog(component_, String(messages_.invalidArgument) + item.reference);
      return ItemOutcome::NotMedia;
    case DataCop::Status::Empty:
      WriteLog(component_, String(messages_.invalidArgument) + item.reference);
      return ItemOutcome::Empty;
  }
  playlist_.entries->Add(entry);
  return ItemOutcome::Kept;
}

bool ItemResolver::Resolve(const std::shared_ptr<FormatEntry>& entry, StringView reference,
                           StringView info, StringView label) {
  const std::optional<Item> item = Judge(*entry, reference);
  if (!item) return false;
  Complete(entry, *item, info, label);
  return true;
}

bool ItemResolver::Register(FormatEntry& entry, const String& path, StringView label) {
  const StringView source = StringView(path).substr(0, path.rfind(u'\\') + 1);
  // An item that came from a relative reference has no file name: its folder is registered.
  return DataCop::RegisterMedia(component_, destinations_, label,
                                DataCop::GetEntrySubFolder(entry, destinations_), source,
                                entry.FileName());
}

}  // namespace norvo
