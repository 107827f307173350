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

bool IsZeroOrNoNumber(StringView text) {
  const std::optional<double> number = ParseNumber(text);
  return !number || *number == 0;
}

}  // namespace

void EntryFields::Clean(Field field) {
  texts_.Set(field, Cleaned(field));
}

/// Replaces by length alone: a value of equal or smaller length never wins, however it reads.
/// Lengths are those of the raw values, NULs included.
void EntryFields::TakeLonger(Field field, StringView offered) {
  if (texts_.At(field).size() < offered.size()) texts_.Set(field, offered);
}

std::size_t EntryFields::TextUnits() const {
  std::size_t units = 0;
  for (std::size_t field = 0; field < kFieldCount; ++field) units += texts_.At(field).size();
  return units;
}

StringView EntryFields::FileName() {
  if (!SourceURL().empty()) return texts_.At(kFileName);
  WriteLog(component_, u"Must set the SourceURL property to obtain the File name ");
  return {};
}

double EntryFields::FileSize() {
  if (!SourceURL().empty()) return fileSize_;
  WriteLog(component_, u"Must set the SourceURL property to obtain a size ");
  return 0;
}

void EntryFields::SetPlayListName(StringView value) {
  if (value.find(u'.') == StringView::npos) {
    texts_.Set(kPlayListName, value);
    return;
  }
  const StringView extension = EntryExtension(entryType_);
  const std::size_t at = extension.empty() ? StringView::npos : FindIgnoreCase(value, extension);
  if (at != StringView::npos) texts_.Set(kPlayListName, value.substr(0, at));
}

StringView EntryFields::SongTitle() {
  const StringView title = texts_.At(kSongTitle);
  if (!title.empty()) return title;
  const StringView songName = texts_.At(kSongName);
  const StringView artistName = texts_.At(kArtistName);
  if (!songName.empty() && !artistName.empty()) {
    texts_.Set(kSongTitle, String(artistName).append(u" - ").append(songName));
  }
  return {};  // also when a title was composed just now: the next call hands it out
}

void EntryFields::SetSongTitle(StringView value) {
  if (texts_.At(kSongTitle).empty()) texts_.Set(kSongTitle, value);
}

bool EntryFields::HasLocalType() const {
  return urlType_ == url_type::kFixedDrive || urlType_ == url_type::kDriveRoot;
}

void EntryFields::SetSourceURL(StringView value) {
  texts_.Set(kSourceUrl, value);
  stamp_.reset();
  if (!HasLocalType()) return;
  const std::optional<FileFacts> facts = NVServices::FactsOfFile(component_, SourceURL());
  if (facts) TakeFacts(*facts);
}

void EntryFields::SetSource(StringView address, const FileFacts* facts) {
  texts_.Set(kSourceUrl, address);
  stamp_.reset();
  if (facts == nullptr) return;
  stamp_ = FileStamp{facts->size, facts->modified};
  if (HasLocalType()) TakeFacts(*facts);
}

void EntryFields::TakeFacts(const FileFacts& facts) {
  fileSize_ = facts.size;
  texts_.SetAsPart(kFileName, facts.name, kSourceUrl);
  if (!HasAsxEntries(entryType_)) fileCreationDate_ = facts.created;
}

String EntryFields::DestinationPath() {
  Clean(kArtistName);
  Clean(kAlbumName);
  Clean(kFileName);
  if (urlType_ >= url_type::kRemovable && urlType_ <= url_type::kInternet) {
    return String(Cleaned(kSourceUrl));
  }
  if (texts_.At(kFileName).empty()) {
    WriteLog(component_, u"The FileName Property has not been set");
    return {};
  }
  const StringView artist = texts_.At(kArtistName);
  const StringView album = texts_.At(kAlbumName);
  String path = DataCop::GetSubNamePath(component_, DataCop::DestinationSlot(artist, album));
  for (const StringView name : {artist, album}) {
    if (!name.empty()) path.append(name).append(1, u'\\');
  }
  return path.append(texts_.At(kFileName));
}

bool EntryFields::GetID3TagInfo() {
  if (SourceURL().empty()) return false;
  // What the look-up told serves once: later the file may be another one.
  const std::optional<FileStamp> stamp = std::exchange(stamp_, std::nullopt);
  // A failing step is skipped: there simply is no tag.
  const AudioTag tag =
      AnswerOr(AudioTag(), [&] { return ReadAudioTag(component_, SourceURL(), stamp); });
  if (tag.kind == AudioTag::Kind::None) return false;
  TakeLonger(kAlbumName, tag.album);
  TakeLonger(kArtistName, tag.artist);
  TakeLonger(kGenre, tag.genre);
  TakeLonger(kSongName, tag.song);
  // An ID3v1 tag fills neither duration nor track nor creation date: intended. (Its year would go
  // into the file's own date, but four characters of a year are no date.)
  if (tag.kind == AudioTag::Kind::Id3v1) return true;
  if (IsZeroOrNoNumber(DurationText())) SetDurationText(FormatInteger(tag.duration));
  if (IsZeroOrNoNumber(TrackNumber())) SetTrackNumber(FormatInteger(tag.track));
  if (CreationDate().empty()) SetCreationDate(tag.year);
  return true;
}

}  // namespace norvo
