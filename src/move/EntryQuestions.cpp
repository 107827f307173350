#include "move/EntryQuestions.h"

#include "automation/Conversions.h"
#include "move/LibraryCalls.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"

namespace norvo {

EntryQuestions::EntryQuestions(Component& library, OverlayPlatform& overlay)
    : library_(library),
      overlay_(overlay),
      draftPath_(DataArea(DataCop::GetGroupRoot(library)) + u"draft.ini") {}

std::vector<EntryAnswer> EntryQuestions::AskFile(const std::string& bytes) {
  overlay_.Settings().Write(draftPath_, bytes);
  const ObjectRef playlist = library_.Create(u"PlayList");
  CallWith(*playlist, u"ReadGeneric", draftPath_);
  overlay_.Files().RemoveFile(draftPath_, true);
  std::vector<EntryAnswer> answers;
  for (const ObjectRef& entry : EntriesOf(*playlist)) {
    EntryAnswer answer;
    answer.place = ToText(entry->Call(u"Entry_DestinationPath"));
    answer.artist = TextOf(*entry, u"Entry_ArtistName");
    answer.album = TextOf(*entry, u"Entry_AlbumName");
    answers.push_back(std::move(answer));
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
