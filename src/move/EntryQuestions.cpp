#include "move/EntryQuestions.h"

#include <utility>

#include "automation/Conversions.h"
#include "model/GenericSections.h"
#include "model/PlaylistRecord.h"
#include "move/LibraryCalls.h"
#include "readers/GenericReader.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kCount = u"TotalSongs";

/// Without the addresses, from which an entry would take the name of a file that stands there.
void DropAddresses(IniDocument& genericFile) {
  for (std::int64_t entry = 1;; ++entry) {
    const std::size_t section = genericFile.FindSection(EntrySection(entry));
    if (section == IniDocument::kNone) return;
    if (genericFile.Value(section, u"SourceURL")) genericFile.SetValue(section, u"SourceURL", {});
  }
}

std::size_t AddEntry(IniDocument& file, std::size_t number) {
  return file.FindOrAddSection(EntrySection(static_cast<std::int64_t>(number)));
}

/// Copies a section's keys and values.
void Copy(const GenericDraft& from, std::size_t section, IniDocument& to, std::size_t copy) {
  from.ForEachValue(section, [&](StringView key, StringView value) {
    if (!to.Value(copy, key)) to.SetValue(copy, key, value);  // of equal keys the first holds
  });
}

}  // namespace

/// What the library's own reading makes of a generic file.
std::vector<EntryAnswer> EntryQuestions::Read(IniDocument genericFile) {
  DropAddresses(genericFile);
  PlaylistRecord playlist;
  ReadGeneric(library_, playlist, genericFile);
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

const KeptAnswer& EntryQuestions::Keep(const EntryAnswer& answer) {
  const StringView place = answer.place;
  const StringView name = LastComponent(place);
  return answers_.emplace_back(KeptAnswer{texts_.Keep(place.substr(0, place.size() - name.size())),
                                          texts_.Keep(name), texts_.Keep(answer.artist),
                                          texts_.Keep(answer.album), texts_.Keep(answer.fileName)});
}

std::vector<const KeptAnswer*> EntryQuestions::AskAll(const GenericDraft& genericFile) {
  const std::size_t count = genericFile.CountEntries();
  if (!AskNew(genericFile, count)) return AskWhole(genericFile);
  std::vector<const KeptAnswer*> answers;
  answers.reserve(count);
  for (std::size_t entry = 1; entry <= count; ++entry) {
    answers.push_back(bySection_.at(genericFile.ContentOf(genericFile.FindEntry(entry))));
  }
  return answers;
}

/// Asks for the entries whose sections no playlist has had before, by a file of these alone. False
/// when the file is not one of just those entries, or they cannot all be read.
bool EntryQuestions::AskNew(const GenericDraft& genericFile, std::size_t count) {
  const std::size_t globals = genericFile.FindSection(kGlobalSection);
  const String all = FormatInteger(static_cast<std::int64_t>(count));
  if (globals == GenericDraft::kNone || genericFile.Value(globals, kCount) != all) return false;
  IniDocument file;
  Copy(genericFile, globals, file, file.FindOrAddSection(kGlobalSection));
  std::vector<SectionPool::Id> contents;
  for (std::size_t entry = 1; entry <= count; ++entry) {
    const std::size_t section = genericFile.FindEntry(entry);
    const SectionPool::Id content = genericFile.ContentOf(section);
    if (!bySection_.try_emplace(content, nullptr).second) continue;
    contents.push_back(content);
    Copy(genericFile, section, file, AddEntry(file, contents.size()));
  }
  file.SetValue(file.FindSection(kGlobalSection), kCount,
                FormatInteger(static_cast<std::int64_t>(contents.size())));
  const std::vector<EntryAnswer> answers = Read(std::move(file));
  const bool isWhole = answers.size() == contents.size();
  for (std::size_t i = 0; i < contents.size(); ++i) {
    if (isWhole) {
      bySection_[contents[i]] = &Keep(answers[i]);
    } else {
      bySection_.erase(contents[i]);
    }
  }
  return isWhole;
}

/// The usual way for a file that is not as it is usually written.
std::vector<const KeptAnswer*> EntryQuestions::AskWhole(const GenericDraft& genericFile) {
  std::vector<const KeptAnswer*> answers;
  for (const EntryAnswer& answer : Read(IniDocument(genericFile.ToText()))) {
    answers.push_back(&Keep(answer));
  }
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
