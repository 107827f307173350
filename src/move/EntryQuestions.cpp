#include "move/EntryQuestions.h"

#include <utility>

#include "automation/Conversions.h"
#include "model/GenericSections.h"
#include "model/PlaylistRecord.h"
#include "move/LibraryCalls.h"
#include "readers/GenericReader.h"

namespace norvo {
namespace {

/// Without the addresses, from which an entry would take the name of a file that stands there.
IniDocument WithoutAddresses(const IniDocument& genericFile) {
  IniDocument copy = genericFile;
  for (std::int64_t entry = 1;; ++entry) {
    const std::size_t section = copy.FindSection(EntrySection(entry));
    if (section == IniDocument::kNone) return copy;
    if (copy.Value(section, u"SourceURL")) copy.SetValue(section, u"SourceURL", {});
  }
}

}  // namespace

std::vector<EntryAnswer> EntryQuestions::AskAll(const IniDocument& genericFile) {
  PlaylistRecord playlist;
  ReadGeneric(library_, playlist, WithoutAddresses(genericFile));
  std::vector<EntryAnswer> answers;
  playlist.entries->ForEach([&](AutomationObject& entry, std::int32_t position) {
    EntryAnswer answer;
    answer.place = ToText(entry.Call(u"Entry_DestinationPath"));
    answer.artist = TextOf(entry, u"Entry_ArtistName");
    answer.album = TextOf(entry, u"Entry_AlbumName");
    // Without an address an entry does not tell its file name, though it uses it.
    const std::size_t section = genericFile.FindSection(EntrySection(position));
    if (section != IniDocument::kNone) {
      answer.fileName = genericFile.Value(section, u"FileName").value_or(StringView());
    }
    answers.push_back(std::move(answer));
  });
  return answers;
}

EntryAnswer EntryQuestions::Ask(const EntryAnswer& names) {
  const ObjectRef entry = library_.Create(u"M3UEntry");
  entry->Let(u"Entry_ArtistName", names.artist);
  entry->Let(u"Entry_AlbumName", names.album);
  entry->Let(u"Entry_FileName", names.fileName);
  EntryAnswer answer = names;
  answer.place = ToText(entry->Call(u"Entry_DestinationPath"));
  return answer;
}

}  // namespace norvo
