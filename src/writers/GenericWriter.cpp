#include "writers/GenericWriter.h"

#include <span>
#include <vector>

#include "automation/RunTimeError.h"
#include "services/ProfileFile.h"
#include "text/Number.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

constexpr StringView kFormatVersion = u"1.6";
constexpr StringView kLineEnd = u"\r\n";

/// A key of an entry section and the entry's property that gives its value.
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
    {u"Artist", u"Entry_ArtistName"},
    {u"Album", u"Entry_AlbumName"},
    {u"CreationDate", u"Entry_CreationDate"},
    {u"Duration", u"Entry_Duration"},
    {u"EntryType", u"Entry_EntryType"},
    {u"FileName", u"Entry_FileName"},
    {u"FileSize", u"Entry_FileSize"},
    {u"PlayListName", u"Entry_PlayListName"},
    {u"Genre", u"Entry_Genre"},
    {u"HasExtendedInfo", u"HasExtendedInfo"},
    {u"SongName", u"Entry_SongName"},
    {u"SongTitle", u"Entry_SongTitle"},
    {u"SourceURL", u"Entry_SourceURL"},
    {u"TrackNumber", u"Entry_TrackNumber"},
    {u"URLType", u"Entry_URLType"},
};

// Neither "EntryType" nor "PlayListName" belongs to this set.
constexpr EntryKey kPlainKeys[] = {
    {u"Artist", u"Entry_ArtistName"},
    {u"Album", u"Entry_AlbumName"},
    {u"CreationDate", u"Entry_CreationDate"},
    {u"Duration", u"Entry_Duration"},
    {u"FileName", u"Entry_FileName"},
    {u"FileSize", u"Entry_FileSize"},
    {u"Genre", u"Entry_Genre"},
    {u"HasExtendedInfo", u"HasExtendedInfo"},
    {u"SongName", u"Entry_SongName"},
    {u"SongTitle", u"Entry_SongTitle"},
    {u"SourceURL", u"Entry_SourceURL"},
    {u"TrackNumber", u"Entry_TrackNumber"},
    {u"URLType", u"Entry_URLType"},
};

void SetDefaultName(PlaylistRecord& playlist, StringView fileName) {
  if (!playlist.name.empty()) return;
  const std::size_t at = FindIgnoreCase(fileName, u".m3u");
  if (at == StringView::npos) throw RunTimeError(error::kInvalidArgument);
  playlist.name = fileName.substr(0, at);
  playlist.nameOrigin = NameOrigin::Host;
}

/// A name out of the playlist's own text shall name a file of the data area and nothing else.
void RefuseForeignPath(const PlaylistRecord& playlist) {
  const bool isPath = playlist.name.find_first_of(u"\\/:") != String::npos;
  if (isPath && playlist.nameOrigin == NameOrigin::PlaylistText) {
    throw RunTimeError(error::kPathFileAccess);
  }
}

void WriteGlobals(ProfileFile& file, const PlaylistRecord& playlist) {
  file.SelectSection(u"Global Properties");
  file.WriteValue(u"PavaneVersion", kFormatVersion);
  file.WriteValue(u"PlaylistName", playlist.name);
  file.WriteValue(u"PlaylistType", FormatInteger(playlist.type));
  file.WriteValue(u"OriginalFileName", playlist.originalFileName);
  file.WriteValue(u"CreationTime", playlist.creationTime);
  if (HasAsxEntries(playlist.type)) {
    file.WriteValue(u"Author", playlist.asxAuthor);
    file.WriteValue(u"Artist", playlist.asxArtist);
    file.WriteValue(u"Album", playlist.asxAlbum);
    file.WriteValue(u"AllowShuffle", playlist.asxAllowShuffle);
    file.WriteValue(u"Title", playlist.asxTitle);
    file.WriteValue(u"PlayListAttribute", playlist.asxPlayListAttribute);
    file.WriteValue(u"ASX Version", playlist.asxVersion);
  }
  // The line end leaves an empty line before the first entry.
  file.WriteValue(u"TotalSongs", FormatInteger(playlist.entries->TotalSongs()) + String(kLineEnd));
}

/// Writes the sections of the entries with one key set.
class EntryWriter {
 public:
  EntryWriter(ProfileFile& file, std::span<const EntryKey> keys) : file_(file), keys_(keys) {
    for (const EntryKey& row : keys) readers_.emplace_back(row.property);
  }

  void Write(AutomationObject& entry, std::int32_t position) {
    file_.SelectSection(u"Entry " + FormatInteger(position) + u" Properties");
    for (std::size_t i = 0; i < keys_.size(); ++i) {
      String value = ToText(readers_[i](entry));
      // The last key of a section is always written and leaves an empty line behind it.
      if (EqualsIgnoreCase(keys_[i].key, u"URLType")) value += kLineEnd;
      if (!value.empty()) file_.WriteValue(keys_[i].key, value);
    }
  }

 private:
  ProfileFile& file_;
  std::span<const EntryKey> keys_;
  std::vector<PropertyReader> readers_;  // one for each key
};

void WriteEntries(ProfileFile& file, const Entries& entries) {
  const bool asx = HasAsxEntries(entries.CollectionType());
  EntryWriter writer(
      file, asx ? std::span<const EntryKey>(kAsxKeys) : std::span<const EntryKey>(kPlainKeys));
  const std::int16_t count = entries.Count();
  for (std::int32_t i = 1; i <= count; ++i) writer.Write(*entries.Item(i), i);
}

}  // namespace

bool WriteGeneric(Component& component, PlaylistRecord& playlist, StringView fileName) {
  try {
    return Guarded([&] {
      if (playlist.entries->Count() == 0) return false;
      SetDefaultName(playlist, fileName);
      RefuseForeignPath(playlist);
      ProfileFile file(component);
      if (!file.CreateFile(PlayListToIni(playlist.name))) return false;
      WriteGlobals(file, playlist);
      WriteEntries(file, *playlist.entries);
      file.Close();
      return true;
    });
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace norvo
