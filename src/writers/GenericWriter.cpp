#include "writers/GenericWriter.h"

#include <vector>

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "model/AsxEntry.h"
#include "model/EntryText.h"
#include "model/GenericSections.h"
#include "services/ProfileFile.h"
#include "services/SettingsText.h"
#include "text/Number.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

constexpr StringView kFormatVersion = u"1.6";

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

void AppendGlobals(String& text, const PlaylistRecord& playlist) {
  AppendSection(text, kGlobalSection);
  AppendSetting(text, kVersionKey, kFormatVersion);
  AppendSetting(text, u"PlaylistName", playlist.name);
  AppendSetting(text, u"PlaylistType", FormatInteger(playlist.type));
  AppendSetting(text, u"OriginalFileName", playlist.originalFileName);
  AppendSetting(text, u"CreationTime", playlist.creationTime);
  if (HasAsxEntries(playlist.type)) {
    for (const AsxGlobalKey& row : AsxGlobalKeys()) {
      AppendSetting(text, row.key, playlist.*row.property);
    }
  }
  // The line end leaves an empty line before the first entry.
  AppendSetting(text, u"TotalSongs",
                FormatInteger(playlist.entries->TotalSongs()) + String(kLineEnd));
}

/// Writes the sections of the entries with one key set. All keys and sections are different, so the
/// text is the file as it stands.
class EntryWriter {
 public:
  EntryWriter(String& text, bool asx) : text_(text), asx_(asx) {
    for (const EntryKey& row : EntryKeys()) {
      if (!row.IsWritten(asx)) continue;
      keys_.push_back({row, PropertyReader(row.property), String(kLineEnd).append(row.key) + u'='});
    }
  }

  void Write(AutomationObject& entry, std::int32_t position) {
    AppendEntrySection(text_, position);
    const std::size_t start = text_.size();
    try {
      WriteValues(entry);
    } catch (...) {
      text_.resize(start);  // all values of an entry, or none
      text_ += kLineEnd;
      throw;
    }
    // The last key of a section leaves an empty line behind it.
    text_.append(kLineEnd).append(kLineEnd);
  }

 private:
  struct Key {
    const EntryKey& row;
    PropertyReader read;
    String start;  // of its line, with the end of the line before: half as many pieces to add
  };

  /// Entries of the library are not asked by name, which takes another 2,800 instructions for each.
  FormatEntry* Own(AutomationObject& entry) const {
    return asx_ ? OwnAsxEntry(entry) : OwnEntry(entry);
  }

  void WriteValues(AutomationObject& entry) {
    FormatEntry* const own = Own(entry);
    const bool mayHaveControls = own == nullptr || own->MayHaveControls();
    for (Key& key : keys_) {
      const std::size_t line = text_.size();
      text_ += key.start;
      const std::size_t value = text_.size();
      if (own != nullptr) {
        key.row.append(*own, text_);
      } else {
        text_ += ToText(key.read(entry));
      }
      // The last key is always written.
      const bool isLast = &key == &keys_.back();
      if (text_.size() == value && !isLast) {
        text_.resize(line);
      } else if (mayHaveControls || HasBlankAround(StringView(text_).substr(value))) {
        Mend(value, isLast);
      }
    }
  }

  static bool HasBlankAround(StringView value) {
    return !value.empty() && (value.front() == u' ' || value.back() == u' ');
  }

  /// The value that begins there becomes what a settings file holds of it.
  void Mend(std::size_t start, bool isLast) {
    String value = text_.substr(start);
    if (isLast) value += kLineEnd;
    String joined;
    text_.resize(start);
    text_ += StoredValue(value, joined);
    if (!isLast && LeavesEmptyLine(value)) text_ += kLineEnd;
  }

  String& text_;
  bool asx_;
  std::vector<Key> keys_;
};

void AppendEntries(String& text, const Entries& entries) {
  // Room for sections of twice the usual length: what is not written to takes no memory, and a
  // text that grows is copied again and again.
  constexpr std::size_t kAmply = 640;
  text.reserve(text.size() + static_cast<std::size_t>(entries.TotalSongs()) * kAmply);
  EntryWriter writer(text, HasAsxEntries(entries.CollectionType()));
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
    // After an error what there is until then is written all the same.
    String text;
    const bool complete = Attempt([&] {
      AppendGlobals(text, playlist);
      AppendEntries(text, *playlist.entries);
    });
    file.WriteWhole(text);
    return complete;
  });
}

}  // namespace norvo
