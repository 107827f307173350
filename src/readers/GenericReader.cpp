#include "readers/GenericReader.h"

#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "automation/Attempt.h"
#include "model/GenericKeys.h"
#include "model/GenericSections.h"
#include "model/NewEntry.h"
#include "services/Logging.h"
#include "services/ProfileFile.h"
#include "text/Number.h"

namespace norvo {
namespace {

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

void ReadAsxGlobals(const ProfileFile& file, PlaylistRecord& playlist) {
  playlist.asxVersion = u"3.0";
  for (const AsxGlobalKey& row : AsxGlobalKeys()) ReadText(file, row.key, playlist.*row.property);
  ReadText(file, u"CreationTime", playlist.creationTime);
}

/// The values of one section, by the rows of `EntryKeys`.
class EntryValues {
 public:
  explicit EntryValues(const ProfileFile& file) : values_(EntryKeys().size()) {
    file.ForEachValue([this](StringView key, StringView value) { Take(key, value); });
  }

  /// In the order of the rows, whatever the order in the file.
  void Give(bool forAsx, FormatEntry& entry) const {
    const std::span<const EntryKey> rows = EntryKeys();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (values_[i] && rows[i].IsRead(forAsx)) rows[i].set(entry, *values_[i]);
    }
  }

 private:
  /// Files are written in the order of the rows: the row of a key is mostly the next one or soon
  /// after. Of equal keys the first holds.
  void Take(StringView key, StringView value) {
    const std::span<const EntryKey> rows = EntryKeys();
    for (std::size_t tried = 0; tried < rows.size(); ++tried) {
      const std::size_t row = (next_ + tried) % rows.size();
      if (!EqualsIgnoreCase(rows[row].key, key)) continue;
      if (!values_[row]) values_[row] = value;
      next_ = row + 1;
      return;
    }
  }

  std::vector<std::optional<StringView>> values_;
  std::size_t next_ = 0;
};

bool RestoresProperties(std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  return row != nullptr && row->restoresProperties;
}

std::int32_t DeclaredCount(const ProfileFile& file) {
  String text;
  ReadText(file, u"TotalSongs", text);
  return text.empty() ? 0 : NarrowToInt32(ParseNumber(text).value_or(0));
}

void ReadEntries(Component& component, ProfileFile& file, PlaylistRecord& playlist,
                 std::int32_t count) {
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::shared_ptr<FormatEntry> entry = NewEntry(component, playlist.type);
    if (!entry) {
      WriteLog(component,
               u"NVERR_OPFAIL, PLAYLIST::ReadGeneric, Bad Object Type - Unable to Process Entry");
      return;
    }
    file.SelectSection(EntrySection(i));
    EntryValues(file).Give(HasAsxEntries(playlist.type), *entry);
    playlist.entries->Add(entry);
  }
}

void ReadAll(Component& component, ProfileFile& file, PlaylistRecord& playlist) {
  file.SelectSection(kGlobalSection);
  ReadGlobals(file, playlist);
  if (RestoresProperties(playlist.type)) ReadAsxGlobals(file, playlist);
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
