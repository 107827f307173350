#include "model/EntryFields.h"

#include <utility>

#include "automation/Attempt.h"
#include "model/PlaylistTypes.h"
#include "services/DataCop.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "tags/AudioTag.h"
#include "text/Number.h"

namespace norvo {
namespace {

String Cleaned(const String& text) {
  return String(NVServices::StripNull(text));
}

/// Replaces by length alone: a value of equal or smaller length never wins, however it reads.
/// Lengths are those of the raw values, NULs included.
void LongerWins(String& stored, const String& offered) {
  if (stored.size() < offered.size()) stored = offered;
}

bool IsZeroOrNoNumber(StringView text) {
  const std::optional<double> number = ParseNumber(text);
  return !number || *number == 0;
}

}  // namespace

String EntryFields::AlbumName() {
  return Cleaned(albumName_);
}
String EntryFields::ArtistName() {
  return Cleaned(artistName_);
}
String EntryFields::SongName() {
  return Cleaned(songName_);
}

String EntryFields::FileName() {
  if (!sourceUrl_.empty()) return fileName_;
  WriteLog(component_, u"Must set the SourceURL property to obtain the File name ");
  return {};
}

double EntryFields::FileSize() {
  if (!sourceUrl_.empty()) return fileSize_;
  WriteLog(component_, u"Must set the SourceURL property to obtain a size ");
  return 0;
}

void EntryFields::SetPlayListName(const String& value) {
  if (value.find(u'.') == String::npos) {
    playListName_ = value;
    return;
  }
  const StringView extension = EntryExtension(entryType_);
  const std::size_t at = extension.empty() ? String::npos : FindIgnoreCase(value, extension);
  if (at != String::npos) playListName_ = value.substr(0, at);
}

String EntryFields::SongTitle() {
  if (!songTitle_.empty()) return songTitle_;
  if (!songName_.empty() && !artistName_.empty()) songTitle_ = artistName_ + u" - " + songName_;
  return {};  // also when a title was composed just now: the next call hands it out
}

void EntryFields::SetSongTitle(const String& value) {
  if (songTitle_.empty()) songTitle_ = value;
}

bool EntryFields::HasLocalType() const {
  return urlType_ == url_type::kFixedDrive || urlType_ == url_type::kDriveRoot;
}

void EntryFields::SetSourceURL(const String& value) {
  sourceUrl_ = value;
  stamp_.reset();
  if (!HasLocalType()) return;
  const std::optional<FileFacts> facts = NVServices::FactsOfFile(component_, value);
  if (facts) TakeFacts(*facts);
}

void EntryFields::SetSource(const String& address, const std::optional<FileFacts>& facts) {
  sourceUrl_ = address;
  stamp_.reset();
  if (!facts) return;
  stamp_ = FileStamp{facts->size, facts->modified};
  if (HasLocalType()) TakeFacts(*facts);
}

void EntryFields::TakeFacts(const FileFacts& facts) {
  fileSize_ = facts.size;
  fileName_ = facts.name;
  if (!HasAsxEntries(entryType_)) fileCreationDate_ = facts.created;
}

String EntryFields::DestinationPath() {
  artistName_ = Cleaned(artistName_);
  albumName_ = Cleaned(albumName_);
  fileName_ = Cleaned(fileName_);
  if (urlType_ >= url_type::kRemovable && urlType_ <= url_type::kInternet) {
    return Cleaned(sourceUrl_);
  }
  if (fileName_.empty()) {
    WriteLog(component_, u"The FileName Property has not been set");
    return {};
  }
  String path =
      DataCop::GetSubNamePath(component_, DataCop::DestinationSlot(artistName_, albumName_));
  for (const String* const name : {&artistName_, &albumName_}) {
    if (!name->empty()) path += *name + u"\\";
  }
  return path + fileName_;
}

bool EntryFields::GetID3TagInfo() {
  if (sourceUrl_.empty()) return false;
  // What the look-up told serves once: later the file may be another one.
  const std::optional<FileStamp> stamp = std::exchange(stamp_, std::nullopt);
  // A failing step is skipped: there simply is no tag.
  const AudioTag tag =
      AnswerOr(AudioTag(), [&] { return ReadAudioTag(component_, sourceUrl_, stamp); });
  if (tag.kind == AudioTag::Kind::None) return false;
  LongerWins(albumName_, tag.album);
  LongerWins(artistName_, tag.artist);
  LongerWins(genre_, tag.genre);
  LongerWins(songName_, tag.song);
  // An ID3v1 tag fills neither duration nor track nor creation date: intended. (Its year would go
  // into the file's own date, but four characters of a year are no date.)
  if (tag.kind == AudioTag::Kind::Id3v1) return true;
  if (IsZeroOrNoNumber(duration_)) duration_ = FormatInteger(tag.duration);
  if (IsZeroOrNoNumber(trackNumber_)) trackNumber_ = FormatInteger(tag.track);
  if (creationDate_.empty()) creationDate_ = tag.year;
  return true;
}

}  // namespace norvo
