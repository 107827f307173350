#include "move/GenericFileMaker.h"

#include <algorithm>
#include <utility>

#include "automation/Conversions.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/PortableNames.h"
#include "text/Number.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

String BaseOf(StringView fileName) {
  return String(fileName.substr(0, fileName.rfind(u'.')));
}

}  // namespace

ObjectRef GenericFileMaker::NewRecord(AutomationObject& read, const String& fileName,
                                      std::int32_t type) {
  constexpr StringView kCopied[] = {u"CreationTime", u"ASX_AllowShuffle",     u"ASX_Artist",
                                    u"ASX_Album",    u"ASX_Author",           u"ASX_Title",
                                    u"ASX_Version",  u"ASX_PlayListAttribute"};
  const ObjectRef playlist = library_.Create(u"PlayList");
  playlist->Let(u"PlayListType", type);
  playlist->Let(u"OriginalFileName", fileName);
  for (const StringView property : kCopied) playlist->Let(property, read.Get(property));
  return playlist;
}

/// Gives the playlist the attempt's name; false when no generic file can be written under it.
bool GenericFileMaker::Name(AutomationObject& playlist, const String& fileName, std::int32_t type,
                            int attempt) {
  String base = BaseOf(fileName);
  if (attempt > 1) {
    // A point would be taken for the start of an extension.
    std::replace(base.begin(), base.end(), u'.', u' ');
    base = PortableName(base) + u" " + FormatInteger(attempt);
  }
  playlist.Let(u"PlayListName", base + String(FindPlaylistType(type)->extension));
  const String name = TextOf(playlist, u"PlayListName");
  if (name.empty() || name.find_first_of(u"\\/:") != String::npos) return false;
  return taken_.insert(Fold(dataArea_ + PlayListToIni(name))).second;
}

/// The path of the generic file; empty when none can be written.
String GenericFileMaker::Write(AutomationObject& read, const String& fileName, const String& number,
                               std::int32_t type, std::span<const ObjectRef> entries) {
  const String base = fileName.substr(0, fileName.find(u'.'));
  const ObjectRef playlist = NewRecord(read, base + number + fileName.substr(base.size()), type);
  const ObjectRef collection = ToObject(playlist->Get(u"PlayListEntries"));
  collection->Let(u"CollectionType", type);
  for (const ObjectRef& entry : entries) {
    entry->Let(u"Entry_EntryType", type);
    collection->Call(u"Add", entry);
  }
  int& attempt = nextNames_.try_emplace(Fold(BaseOf(fileName)), 1).first->second;
  for (int failures = 0; failures < 2; ++attempt) {
    if (!Name(*playlist, fileName, type, attempt)) continue;
    if (ToBoolean(playlist->Call(u"WriteGeneric", fileName))) {
      return dataArea_ + PlayListToIni(TextOf(*playlist, u"PlayListName"));
    }
    ++failures;  // the name may be one that this disk cannot have, or the disk is full
  }
  return {};
}

}  // namespace norvo
