#include "writers/GenericWriter.h"

#include <vector>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "model/GenericKeys.h"
#include "model/GenericSections.h"
#include "services/ProfileFile.h"
#include "text/Number.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

constexpr StringView kFormatVersion = u"1.6";
constexpr StringView kLineEnd = u"\r\n";

void SetDefaultName(PlaylistRecord& playlist, StringView fileName) {
  if (!playlist.name.empty()) return;
  // By this extension whatever the playlist's type: intended.
  const std::size_t at = FindIgnoreCase(fileName, kUsualExtension);
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
  file.WriteValue(kVersionKey, kFormatVersion);
  file.WriteValue(u"PlaylistName", playlist.name);
  file.WriteValue(u"PlaylistType", FormatInteger(playlist.type));
  file.WriteValue(u"OriginalFileName", playlist.originalFileName);
  file.WriteValue(u"CreationTime", playlist.creationTime);
  if (HasAsxEntries(playlist.type)) {
    for (const AsxGlobalKey& row : AsxGlobalKeys()) {
      file.WriteValue(row.key, playlist.*row.property);
    }
  }
  // The line end leaves an empty line before the first entry.
  file.WriteValue(u"TotalSongs", FormatInteger(playlist.entries->TotalSongs()) + String(kLineEnd));
}

/// Writes the sections of the entries with one key set.
class EntryWriter {
 public:
  EntryWriter(ProfileFile& file, bool asx) : file_(file) {
    for (const EntryKey& row : EntryKeys()) {
      if (row.IsWritten(asx)) keys_.push_back({row.key, PropertyReader(row.property)});
    }
  }

  void Write(AutomationObject& entry, std::int32_t position) {
    file_.SelectSection(EntrySection(position));
    for (Key& key : keys_) {
      String value = ToText(key.read(entry));
      // The last key of a section is always written and leaves an empty line behind it.
      if (&key == &keys_.back()) value += kLineEnd;
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
