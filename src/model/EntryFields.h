#pragma once

#include <cstdint>
#include <optional>

#include "automation/MemberTable.h"
#include "services/Component.h"
#include "text/PackedTexts.h"

namespace norvo {

/// The field set of one playlist item: a media file or a stream address with what is known of it.
/// `Entry` offers it under its plain names, the format entries under names with a prefix, so that
/// each can be used wherever an entry is expected.
class EntryFields : public TableObject {
 public:
  /// An entry of the component, which must outlive it.
  explicit EntryFields(Component& component) : component_(component) {
    texts_.Reserve(kUsualUnits);
  }

  /// @{
  /// Names, read back cut at the first NUL and trimmed; stored as given.
  StringView AlbumName() { return Cleaned(kAlbumName); }
  void SetAlbumName(StringView value) { texts_.Set(kAlbumName, value); }
  StringView ArtistName() { return Cleaned(kArtistName); }
  void SetArtistName(StringView value) { texts_.SetAsPart(kArtistName, value, kSongTitle); }
  StringView SongName() { return Cleaned(kSongName); }
  virtual void SetSongName(StringView value) { texts_.SetAsPart(kSongName, value, kSongTitle); }
  /// @}

  /// @{
  /// When the song was made, as its tag tells it: the year.
  StringView CreationDate() { return texts_.At(kCreationDate); }
  void SetCreationDate(StringView value) { texts_.Set(kCreationDate, value); }
  /// @}

  /// @{
  /// Any value, kept as text: seconds, or whatever the reader stored.
  Variant Duration() { return String(DurationText()); }
  void SetDuration(const Variant& value) { SetDurationText(ToText(value)); }
  StringView DurationText() { return texts_.At(kDuration); }
  void SetDurationText(StringView value) { texts_.Set(kDuration, value); }
  /// @}

  /// @{
  /// One of playlist_type: of the playlist that the entry came from.
  std::int32_t EntryType() { return entryType_; }
  void SetEntryType(std::int32_t value) { entryType_ = value; }
  /// @}

  /// @{
  /// The file's own name, without its folder. The empty text and a log line while no source address
  /// is set.
  StringView FileName();
  void SetFileName(StringView value) { texts_.Set(kFileName, value); }
  /// @}
  /// Bytes; 0 and a log line while no source address is set.
  double FileSize();

  /// @{
  /// The genre by its name.
  StringView Genre() { return texts_.At(kGenre); }
  void SetGenre(StringView value) { texts_.Set(kGenre, value); }
  /// @}
  /// @{
  /// A number that a host may keep here.
  std::int32_t NativeFormat() { return nativeFormat_; }
  void SetNativeFormat(std::int32_t value) { nativeFormat_ = value; }
  /// @}

  /// Always empty, whatever was set: intended. The playlist itself knows its name.
  StringView PlayListName() { return {}; }
  /// Stores the name without the extension that belongs to the entry type; a name that has a point
  /// but not that extension is not stored.
  void SetPlayListName(StringView value);

  /// Without a stored title, the first call composes "artist - song" and still answers with the
  /// empty text; later calls hand it out. Intended.
  StringView SongTitle();
  /// Only the first title that is not empty is kept.
  void SetSongTitle(StringView value);

  /// The same question without the composing.
  bool HasSongTitle() const { return !texts_.At(kSongTitle).empty(); }

  /// Address of the media: a full path or an internet address.
  StringView SourceURL() { return texts_.At(kSourceUrl); }
  /// Also reads the file's name, size and creation date when the address type is 0 or 1 and the
  /// file exists.
  void SetSourceURL(StringView value);

  /// @{
  /// Address type, one of url_type.
  std::int32_t Urltype() { return urlType_; }
  void SetUrltype(std::int32_t value) { urlType_ = value; }
  /// @}
  /// @{
  /// Number of the song on its album, as text.
  StringView TrackNumber() { return texts_.At(kTrackNumber); }
  void SetTrackNumber(StringView value) { texts_.Set(kTrackNumber, value); }
  /// @}

  /// Path under which the media file is to be placed; the source address itself for the types 6 to
  /// 9. Empty, with a log line, without a file name.
  String DestinationPath();
  /// Completes the fields from the file's audio tag; true when a tag was consulted.
  bool GetID3TagInfo();

  /// Sets the source address together with what a look-up has just told of the file, so that the
  /// disk is not asked twice. Same effect as `SetSourceURL`.
  void SetSource(StringView address, const FileFacts* facts);

  /// Units of all its texts.
  std::size_t TextUnits() const;

  /// False when no property's text has a unit below the blank.
  virtual bool MayHaveControls() const { return texts_.MayHaveControls(); }

  /// @{
  /// What no property hands out.
  StringView StoredPlayListName() const { return texts_.At(kPlayListName); }
  std::optional<FileTime> FileCreationDate() const { return fileCreationDate_; }
  /// @}

 private:
  // What an ordinary song has of texts, so that they are given their room once.
  static constexpr std::size_t kUsualUnits = 139;

  /// @cond
  enum Field : std::uint8_t {
    kAlbumName,
    kArtistName,
    kCreationDate,
    kDuration,
    kFileName,
    kGenre,
    kPlayListName,
    kSongName,
    kSongTitle,
    kSourceUrl,
    kTrackNumber,
    kFieldCount
  };
  /// @endcond

  StringView Cleaned(Field field) const {
    const StringView text = texts_.At(field);
    return texts_.MayHaveControls() ? Trim(BeforeNul(text)) : Trim(text);
  }
  void Clean(Field field);
  void TakeLonger(Field field, StringView offered);
  void TakeFacts(const FileFacts& facts);
  bool HasLocalType() const;

  Component& component_;
  PackedTexts<kFieldCount> texts_;
  double fileSize_ = 0;
  std::optional<FileTime> fileCreationDate_;
  std::optional<FileStamp> stamp_;  // of the file at the source address, as just looked up
  std::int32_t nativeFormat_ = 0;
  std::int32_t entryType_ = 0;
  std::int32_t urlType_ = 0;
};

}  // namespace norvo
