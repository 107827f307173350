#pragma once

#include <cstdint>
#include <optional>

#include "automation/MemberTable.h"
#include "services/Component.h"

namespace norvo {

/// The field set of one playlist item: a media file or a stream address with what is known of it.
/// `Entry` offers it under its plain names, the format entries under names with a prefix, so that
/// each can be used wherever an entry is expected.
class EntryFields : public TableObject {
 public:
  /// An entry of the component, which must outlive it.
  explicit EntryFields(Component& component) : component_(component) {}

  /// @{
  /// Names, read back cut at the first NUL and trimmed; stored as given.
  String AlbumName();
  void SetAlbumName(const String& value) { albumName_ = value; }
  String ArtistName();
  void SetArtistName(const String& value) { artistName_ = value; }
  String SongName();
  virtual void SetSongName(const String& value) { songName_ = value; }
  /// @}

  /// @{
  /// When the song was made, as its tag tells it: the year.
  String CreationDate() { return creationDate_; }
  void SetCreationDate(const String& value) { creationDate_ = value; }
  /// @}

  /// @{
  /// Any value, kept as text: seconds, or whatever the reader stored.
  Variant Duration() { return duration_; }
  void SetDuration(const Variant& value) { duration_ = ToText(value); }
  /// @}

  /// @{
  /// One of playlist_type: of the playlist that the entry came from.
  std::int32_t EntryType() { return entryType_; }
  void SetEntryType(std::int32_t value) { entryType_ = value; }
  /// @}

  /// @{
  /// The file's own name, without its folder. The empty text and a log line while no source address
  /// is set.
  String FileName();
  void SetFileName(const String& value) { fileName_ = value; }
  /// @}
  /// Bytes; 0 and a log line while no source address is set.
  double FileSize();

  /// @{
  /// The genre by its name.
  String Genre() { return genre_; }
  void SetGenre(const String& value) { genre_ = value; }
  /// @}
  /// @{
  /// A number that a host may keep here.
  std::int32_t NativeFormat() { return nativeFormat_; }
  void SetNativeFormat(std::int32_t value) { nativeFormat_ = value; }
  /// @}

  /// Always empty, whatever was set: intended. The playlist itself knows its name.
  String PlayListName() { return {}; }
  /// Stores the name without the extension that belongs to the entry type; a name that has a point
  /// but not that extension is not stored.
  void SetPlayListName(const String& value);

  /// Without a stored title, the first call composes "artist - song" and still answers with the
  /// empty text; later calls hand it out. Intended.
  String SongTitle();
  /// Only the first title that is not empty is kept.
  void SetSongTitle(const String& value);

  /// Address of the media: a full path or an internet address.
  String SourceURL() { return sourceUrl_; }
  /// Also reads the file's name, size and creation date when the address type is 0 or 1 and the
  /// file exists.
  void SetSourceURL(const String& value);

  /// @{
  /// Address type, one of url_type.
  std::int32_t Urltype() { return urlType_; }
  void SetUrltype(std::int32_t value) { urlType_ = value; }
  /// @}
  /// @{
  /// Number of the song on its album, as text.
  String TrackNumber() { return trackNumber_; }
  void SetTrackNumber(const String& value) { trackNumber_ = value; }
  /// @}

  /// Path under which the media file is to be placed; the source address itself for the types 6 to
  /// 9. Empty, with a log line, without a file name.
  String DestinationPath();
  /// Completes the fields from the file's audio tag; true when a tag was consulted.
  bool GetID3TagInfo();

  /// Sets the source address together with what a look-up has just told of the file, so that the
  /// disk is not asked twice. Same effect as `SetSourceURL`.
  void SetSource(const String& address, const std::optional<FileFacts>& facts);

  /// @{
  /// What no property hands out.
  const String& StoredPlayListName() const { return playListName_; }
  std::optional<FileTime> FileCreationDate() const { return fileCreationDate_; }
  /// @}

 private:
  void TakeFacts(const FileFacts& facts);
  bool HasLocalType() const;

  Component& component_;
  String artistName_;
  String albumName_;
  String creationDate_;
  String duration_;
  String fileName_;
  std::int32_t nativeFormat_ = 0;
  String genre_;
  String songName_;
  String songTitle_;
  String sourceUrl_;
  String trackNumber_;
  std::int32_t entryType_ = 0;
  String playListName_;
  double fileSize_ = 0;
  std::int32_t urlType_ = 0;
  std::optional<FileTime> fileCreationDate_;
  std::optional<FileStamp> stamp_;  // of the file at the source address, as just looked up
};

}  // namespace norvo
