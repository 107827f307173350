#include "readers/ItemResolver.h"

#include "automation/RunTimeError.h"
#include "model/AsxEntry.h"
#include "readers/ExtendedInfo.h"
#include "readers/TextLines.h"
#include "services/Logging.h"
#include "services/NVServices.h"

namespace norvo {
namespace {

// A tag with texts of any length stands once in a song and once in every entry that names it. Texts
// of an entry up to the usual amount are not counted, so that long playlists are read as ever; what
// is counted would be more than the usual amount for each of as many entries as can be written.
constexpr std::size_t kUsualText = 1024;
constexpr std::size_t kMostLongTexts = std::size_t{32} * 1024 * 1024;

// Far more than the 32767 that a playlist can count; a file of short lines shall not fill the
// memory with entries, nor with what its reader's host keeps of each item.
constexpr std::int32_t kMostEntries = 100'000;
constexpr std::size_t kMostItems = 250'000;

}  // namespace

ItemResolver::ItemResolver(Component& component, PlaylistRecord& playlist, String folder,
                           ResolverMessages messages)
    : component_(component),
      playlist_(playlist),
      folder_(std::move(folder)),
      messages_(messages),
      destinations_(DataCop::LoadDestinations(component)) {}

bool ItemResolver::JudgeItem(FormatEntry& entry, Item& item) {
  std::int32_t type = url_type::kFixedDrive;
  std::optional<FileFacts> facts;
  item.status = DataCop::GetGenValue(component_, item.reference, folder_, type, &facts);
  if (type == url_type::kUnusable) {
    WriteLog(component_, String(messages_.fileNotFound) + item.reference);
    component_.Watcher().OnItem(item.reference, ItemOutcome::Missing);
    return false;
  }
  entry.SetUrltype(type);
  entry.SetSource(item.reference, facts ? &*facts : nullptr);
  return true;
}

void ItemResolver::CountItem(StringView reference) {
  if (++items_ > kMostItems) throw RunTimeError(error::kOverflow);
  CheckLine(reference);
}

std::optional<ItemResolver::Item> ItemResolver::Judge(FormatEntry& entry, StringView reference) {
  CountItem(reference);
  Item item{String(reference), DataCop::Status::Ok};
  if (!JudgeItem(entry, item)) return std::nullopt;
  return item;
}

void ItemResolver::Complete(const std::shared_ptr<FormatEntry>& entry, const Item& item,
                            StringView info, StringView label) {
  CheckLine(info);
  if (ReadExtendedInfo(info, *entry, playlist_.type, title_)) entry->SetHasExtendedInfo(true);
  CountTexts(*entry);
  component_.Watcher().OnItem(item.reference, AddOrDrop(entry, item, label));
}

void ItemResolver::CountTexts(const FormatEntry& entry) {
  const std::size_t units = entry.TextUnits();
  if (units <= kUsualText) return;
  longTexts_ += units;
  if (longTexts_ > kMostLongTexts) throw RunTimeError(error::kOutOfMemory);
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
  if (playlist_.entries->TotalSongs() >= kMostEntries) throw RunTimeError(error::kOverflow);
  playlist_.entries->Add(component_.Watcher().WantsEntries() ? entry : EmptyLike(*entry));
  return ItemOutcome::Kept;
}

/// Of the same type, since the collection takes no other.
const std::shared_ptr<FormatEntry>& ItemResolver::EmptyLike(FormatEntry& entry) {
  if (!empty_) {
    empty_ = std::make_shared<M3UEntry>(component_);
    empty_->SetEntryType(entry.EntryType());
  }
  return empty_;
}

bool ItemResolver::Resolve(const std::shared_ptr<FormatEntry>& entry, StringView reference,
                           StringView info, StringView label) {
  CountItem(reference);
  item_.reference = reference;
  if (!JudgeItem(*entry, item_)) return false;
  Complete(entry, item_, info, label);
  return true;
}

/// By the entry's own artist and album, of which the extended ones of an ASX entry go first; what
/// DataCop::GetEntrySubFolder finds by asking any object by name.
bool ItemResolver::Register(FormatEntry& entry, const String& path, StringView label) {
  StringView artist;
  StringView album;
  if (entry.Members() == &AsxEntry::Interface()) {
    artist = static_cast<AsxEntry&>(entry).Artist();
    album = static_cast<AsxEntry&>(entry).Album();
  }
  artist = NVServices::StripNull(artist.empty() ? entry.ArtistName() : artist);
  album = NVServices::StripNull(album.empty() ? entry.AlbumName() : album);
  record_.source.assign(path, 0, path.rfind(u'\\') + 1);
  // An item that came from a relative reference has no file name: its folder is registered.
  record_.source += entry.FileName();
  DataCop::BeginDestination(record_.destination, label);
  DataCop::AppendSubFolder(record_.destination, artist, album, destinations_);
  record_.category = label;
  return DataCop::RegisterMedia(component_, destinations_, record_);
}

}  // namespace norvo
