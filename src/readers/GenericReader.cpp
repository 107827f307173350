#include "readers/GenericReader.h"

#include <utility>

#include "automation/Attempt.h"
#include "model/AsxEntry.h"
#include "model/GenericSections.h"
#include "services/Logging.h"
#include "services/ProfileFile.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// A key of an entry section and the entry's property that takes its value.
struct EntryKey {
  StringView key;
  StringView property;
};

constexpr EntryKey kAsxKeys[] = {
    {u"Abstract", u"Abstract"},
    {u"ASX_Album", u"ASX_Album"},
    {u"ASX_Artist", u"ASX_Artist"},
    {u"ASX_Author", u"ASX_Author"},
    {u"ASX_SongName", u"ASX_SongName"},
    {u"ASX_Title", u"ASX_Title"},
    {u"ASX_BitRate", u"BitRate"},
    {u"ASX_Copyright", u"Copyright"},
    {u"ASX_DigitallySecure", u"DigitallySecure"},
    {u"ASX_HREF", u"HREF"},
    {u"ASX_MediaAttribute", u"MediaAttribute"},
    {u"ASX_MediaType", u"MediaType"},
    {u"ASX_PlayCount", u"PlayCount"},
    {u"ASX_PlaylistAttribute", u"PlaylistAttribute"},
};

// The source address comes before its type, so the entry looks for the file whatever the type
// will be: intended.
constexpr EntryKey kSharedKeys[] = {
    {u"Artist", u"Entry_ArtistName"},
    {u"Album", u"Entry_AlbumName"},
    {u"CreationDate", u"Entry_CreationDate"},
    {u"Duration", u"Entry_Duration"},
    {u"EntryType", u"Entry_EntryType"},
    {u"FileName", u"Entry_FileName"},
    {u"PlayListName", u"Entry_PlayListName"},
    {u"HasExtendedInfo", u"HasExtendedInfo"},
    {u"Genre", u"Entry_Genre"},
    {u"SongName", u"Entry_SongName"},
    {u"SongTitle", u"Entry_SongTitle"},
    {u"SourceURL", u"Entry_SourceURL"},
    {u"TrackNumber", u"Entry_TrackNumber"},
    {u"URLType", u"Entry_URLType"},
};

void ReadText(const ProfileFile& file, StringView key, String& value) {
  file.ReadValue(key, value);  // a key that is not found leaves the value as it was
}

void ReadGlobals(const ProfileFile& file, PlaylistRecord& playlist) {
  String value;
  if (file.ReadValue(u"PlaylistName", value) == 0) {
    playlist.name = value;
    playlist.nameOrigin = NameOrigin::Playlist;
  }
  if (file.ReadValue(u"OriginalFileName", value) == 0 && playlist.originalFileName.empty()) {
    playlist.originalFileName = value;
  }
  if (file.ReadValue(u"TotalSongs", value) == 0) playlist.totalSongsStore = Int16FromText(value);
  if (file.ReadValue(u"PlaylistType", value) == 0) playlist.type = Int32FromText(value);
}

/// Only for type 1, although the writer writes these keys for type 2 as well: intended.
void ReadAsxGlobals(const ProfileFile& file, PlaylistRecord& playlist) {
  ReadText(file, u"Author", playlist.asxAuthor);
  ReadText(file, u"Artist", playlist.asxArtist);
  ReadText(file, u"Album", playlist.asxAlbum);
  ReadText(file, u"CreationTime", playlist.creationTime);
  ReadText(file, u"AllowShuffle", playlist.asxAllowShuffle);
  ReadText(file, u"Title", playlist.asxTitle);
  ReadText(file, u"PlayListAttribute", playlist.asxPlayListAttribute);
  playlist.asxVersion = u"3.0";
  ReadText(file, u"ASX Version", playlist.asxVersion);
}

/// Null for a type that has no entries.
ObjectRef NewEntry(Component& component, std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  if (row == nullptr) return nullptr;
  if (HasAsxEntries(type)) return std::make_shared<AsxEntry>(component);
  if (row->readAs == Syntax::Pls) return std::make_shared<PlsEntry>(component);
  return std::make_shared<M3UEntry>(component);
}

template <std::size_t kCount>
void ReadKeys(const ProfileFile& file, const EntryKey (&keys)[kCount], AutomationObject& entry) {
  for (const EntryKey& row : keys) {
    String value;
    if (file.ReadValue(row.key, value) == 0) entry.Let(row.property, std::move(value));
  }
}

std::int32_t DeclaredCount(const ProfileFile& file) {
  String text;
  ReadText(file, u"TotalSongs", text);
  return text.empty() ? 0 : NarrowToInt32(ParseNumber(text).value_or(0));
}

void ReadEntries(Component& component, ProfileFile& file, PlaylistRecord& playlist,
                 std::int32_t count) {
  for (std::int32_t i = 1; i <= count; ++i) {
    const ObjectRef entry = NewEntry(component, playlist.type);
    if (!entry) {
      WriteLog(component,
               u"NVERR_OPFAIL, PLAYLIST::ReadGeneric, Bad Object Type - Unable to Process Entry");
      return;
    }
    entry->Let(u"Entry_EntryType", playlist.type);
    file.SelectSection(EntrySection(i));
    if (HasAsxEntries(playlist.type)) ReadKeys(file, kAsxKeys, *entry);
    ReadKeys(file, kSharedKeys, *entry);
    playlist.entries->Add(entry);
  }
}

void ReadAll(Component& component, ProfileFile& file, PlaylistRecord& playlist) {
  file.SelectSection(kGlobalSection);
  ReadGlobals(file, playlist);
  if (playlist.type == playlist_type::kWmpAsx) ReadAsxGlobals(file, playlist);
  playlist.entries->SetCollectionType(playlist.type);
  ReadEntries(component, file, playlist, DeclaredCount(file));
}

}  // namespace

bool ReadGeneric(Component& component, PlaylistRecord& playlist, StringView path) {
  // After an error what was read until then stays.
  Attempt([&] {
    ProfileFile file(component);
    if (file.OpenFile(path) && file.Exists()) ReadAll(component, file, playlist);
  });
  return false;
}

void ReadGeneric(Component& component, PlaylistRecord& playlist, IniDocument document) {
  Attempt([&] {
    ProfileFile file(component);
    file.Hold(std::move(document));
    ReadAll(component, file, playlist);
  });
}

}  // namespace norvo
