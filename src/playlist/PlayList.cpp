#include "playlist/PlayList.h"

#include "automation/Attempt.h"
#include "automation/Dates.h"
#include "readers/GenericReader.h"
#include "readers/NativeReader.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "services/TextStream.h"
#include "text/WindowsPath.h"
#include "writers/GenericWriter.h"
#include "writers/NativeNaming.h"
#include "writers/NativeWriter.h"

namespace norvo {

bool PlayList::ReadPlayList(const String& path) {
  const std::optional<FileFacts> facts = NVServices::FactsOfFile(component_, path);
  if (!facts) return false;
  FileSystem& files = component_.Files();
  record_.creationTime = DateText(files.LocalDate(facts->created));
  record_.originalFileName = facts->name;
  const String fullPath = files.AbsolutePathName(path);
  record_.SetName(record_.originalFileName, NameOrigin::Playlist);
  const PlaylistType* const type = FindPlaylistType(record_.type);
  if (type == nullptr) return true;  // an unknown type is no error of the read: intended
  const bool read = CanBeHeld(*facts, fullPath) &&
                    ReadNative(component_, record_, type->readAs, ParentFolder(fullPath));
  if (!read) WriteLog(component_, type->failureText);
  KeepRegistrations();
  return read;
}

/// False, with a warning, for a file that is larger than any playlist.
bool PlayList::CanBeHeld(const FileFacts& facts, StringView path) {
  if (facts.size <= kLargestPlaylist) return true;
  WriteWarning(component_, {WarningKind::FileNotRead, path, u"PLAYLIST::ReadPlayList -> "},
               TooLarge(kLargestPlaylist, path).Description());
  return false;
}

/// Makes durable what the read has registered; the list keeps what cannot be written for later.
void PlayList::KeepRegistrations() {
  const bool kept = AnswerOr(false, [this] { return component_.Machine().Migration().Flush(); });
  if (!kept) {
    WriteWarning(component_,
                 {WarningKind::MediaListNotWritten,
                  {},
                  {},
                  u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, The media list could not be written"});
  }
}

bool PlayList::WriteGeneric(const String& fileName) {
  return norvo::WriteGeneric(component_, record_, fileName);
}

bool PlayList::WriteRawPlayList() {
  return norvo::WriteRawPlayList(component_, record_);
}

bool PlayList::ReadGeneric(const String& fileName) {
  return norvo::ReadGeneric(component_, record_, fileName);
}

String PlayList::GetNewPlayListPath(const String& fileName, std::int32_t type) {
  return norvo::GetNewPlayListPath(component_, fileName, type);
}

void PlayList::SetPlayListName(const Variant& value) {
  record_.SetName(ToText(value), NameOrigin::Host);
}

void PlayList::SetOriginalFileName(const String& value) {
  if (record_.originalFileName.empty()) record_.originalFileName = value;
}

const MemberTable& PlayList::Interface() {
  using P = PlayList;
  static const MemberTable table(
      u"PlayList",
      {
          Method<&P::ReadPlayList>(u"ReadPlayList", {ByRef(u"PlayListPath")}),
          Method<&P::WriteGeneric>(u"WriteGeneric", {ByRef(u"FileName")}),
          ReadOnly<&P::PlayListEntries>(u"PlayListEntries"),
          Method<&P::WriteRawPlayList>(u"WriteRawPlayList"),
          Method<&P::ReadGeneric>(u"ReadGeneric", {ByRef(u"FileName")}),
          Method<&P::GetNewPlayListPath>(u"GetNewPlayListPath",
                                         {In(u"FileName"), ByRef(u"PlsType")}),
          Property<&P::CreationTime, &P::SetCreationTime>(u"CreationTime"),
          Property<&P::PlayListName, &P::SetPlayListName>(u"PlayListName"),
          Property<&P::PlayListType, &P::SetPlayListType>(u"PlayListType"),
          Property<&P::OriginalFileName, &P::SetOriginalFileName>(u"OriginalFileName"),
          Property<&P::TotalSongs, &P::SetTotalSongs>(u"TotalSongs"),
          Property<&P::AllowShuffle, &P::SetAllowShuffle>(u"ASX_AllowShuffle"),
          Property<&P::Artist, &P::SetArtist>(u"ASX_Artist"),
          Property<&P::Album, &P::SetAlbum>(u"ASX_Album"),
          Property<&P::Author, &P::SetAuthor>(u"ASX_Author"),
          Property<&P::Title, &P::SetTitle>(u"ASX_Title"),
          Property<&P::Version, &P::SetVersion>(u"ASX_Version"),
          Property<&P::PlayListAttribute, &P::SetPlayListAttribute>(u"ASX_PlayListAttribute"),
      });
  return table;
}

}  // namespace norvo
