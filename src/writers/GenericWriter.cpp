#include "writers/GenericWriter.h"

#include <vector>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "model/GenericSections.h"
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
  bool isPlain = false;  // belongs to the plain key set too
};

// The key set of ASX entries. The plain set is a part of it, in the same order; neither
// "EntryType" nor "PlayListName" belongs to that.
constexpr EntryKey kEntryKeys[] = {
    {u"Abstract", u"Abstract", false},
    {u"ASX_Album", u"ASX_Album", false},
    {u"ASX_Artist", u"ASX_Artist", false},
    {u"ASX_Author", u"ASX_Author", false},
    {u"ASX_SongName", u"ASX_SongName", false},
    {u"ASX_Title", u"ASX_Title", false},
    {u"ASX_BitRate", u"BitRate", false},
    {u"ASX_Copyright", u"Copyright", false},
    {u"ASX_DigitallySecure", u"DigitallySecure", false},
    {u"ASX_HREF", u"HREF", false},
    {u"ASX_MediaAttribute", u"MediaAttribute", false},
    {u"ASX_MediaType", u"MediaType", false},
    {u"ASX_PlayCount", u"PlayCount", false},
    {u"ASX_PlaylistAttribute", u"PlaylistAttribute", false},
    {u"Artist", u"Entry_ArtistName", true},
    {u"Album", u"Entry_AlbumName", true},
    {u"CreationDate", u"Entry_CreationDate", true},
    {u"Duration", u"Entry_Duration", true},
    {u"EntryType", u"Entry_EntryType", false},
    {u"FileName", u"Entry_FileName", true},
    {u"FileSize", u"Entry_FileSize", true},
    {u"PlayListName", u"Entry_PlayListName", false},
    {u"Genre", u"Entry_Genre", true},
    {u"HasExtendedInfo", u"HasExtendedInfo", true},
    {u"SongName", u"Entry_SongName", true},
    {u"SongTitle", u"Entry_SongTitle", true},
    {u"SourceURL", u"Entry_SourceURL", true},
    {u"TrackNumber", u"Entry_TrackNumber", true},
    {u"URLType", u"Entry_URLType", true},
};

void SetDefaultName(PlaylistRecord& playlist, StringView fileName) {
  if (!playlist.name.empty()) return;
  const std::size_t at = FindIgnoreCase(fileName, u".m3u");
  if (at == StringView::npos) throw RunTimeError(error::kInvalidArgument);
  playlist.name = fileName.substr(0, at);
  playlist.nameOrigin = NameOrigin::Host;
}

/// A name out of the playlist itself shall name a file of the data area and nothing else.
void RefuseForeignPath(const PlaylistRecord& playlist) {
  const bool isPath = playlist.name.find_first_of(u"\\/:") != String::npos;
  if (isPath && playlist.nameOrigin == NameOrigin::Playlist) {
    throw RunTimeError(error::kPathFileAccess);
  }
}

void WriteGlobals(ProfileFile& file, const PlaylistRecord& playlist) {
  file.SelectSection(kGlobalSection);
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
  EntryWriter(ProfileFile& file, bool asx) : file_(file) {
    for (const EntryKey& row : kEntryKeys) {
      if (asx || row.isPlain) keys_.push_back({row.key, PropertyReader(row.property)});
    }
  }

  void Write(AutomationObject& entry, std::int32_t position) {
    file_.SelectSection(EntrySection(position));
    for (Key& key : keys_) {
      String value = ToText(key.read(entry));
      // The last key of a section is always written and leaves an empty line behind it.
      if (EqualsIgnoreCase(key.name, u"URLType")) value += kLineEnd;
      if (!value.empty()) file_.WriteValue(key.name, value);
    }
  }

 private:
  struct Key {
    StringView name;
    PropertyReader read;
  };

  ProfileFile& file_;
  std::vector<Key> keys_;
};

void WriteEntries(ProfileFile& file, const Entries& entries) {
  EntryWriter writer(file, HasAsxEntries(entries.CollectionType()));
  entries.ForEach(
      [&](AutomationObject& entry, std::int32_t position) { writer.Write(entry, position); });
}

}  // namespace

bool WriteGeneric(Component& component, PlaylistRecord& playlist, StringView fileName) {
  return AnswerOr(false, [&] {
    if (playlist.entries->Count() == 0) return false;
    SetDefaultName(playlist, fileName);
    RefuseForeignPath(playlist);
    ProfileFile file(component);
    if (!file.CreateNew(PlayListToIni(playlist.name))) return false;
    WriteGlobals(file, playlist);
    WriteEntries(file, *playlist.entries);
    file.Close();
    return true;
  });
}

}  // namespace norvo
