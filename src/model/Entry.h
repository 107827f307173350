#pragma once

#include <optional>

#include "automation/Event.h"
#include "automation/MemberTable.h"
#include "model/EntryInterface.h"
#include "services/Component.h"
#include "tags/AudioTag.h"

namespace norvo {

/// One item of a playlist: a media file or a stream address with its descriptive fields.
class Entry final : public TableObject, public EntryInterface {
 public:
  explicit Entry(Component& component) : component_(component) {}

  String AlbumName() override;
  void SetAlbumName(const String& value) override { albumName_ = value; }
  String ArtistName() override;
  void SetArtistName(const String& value) override { artistName_ = value; }
  String SongName() override;
  void SetSongName(const String& value) override { songName_ = value; }
  String CreationDate() override { return creationDate_; }
  void SetCreationDate(const String& value) override { creationDate_ = value; }
  Variant Duration() override { return duration_; }
  void SetDuration(const Variant& value) override { duration_ = ToText(value); }
  std::int32_t EntryType() override { return entryType_; }
  void SetEntryType(std::int32_t value) override { entryType_ = value; }
  String FileName() override;
  void SetFileName(const String& value) override { fileName_ = value; }
  double FileSize() override;
  String Genre() override { return genre_; }
  void SetGenre(const String& value) override { genre_ = value; }
  std::int32_t NativeFormat() override { return nativeFormat_; }
  void SetNativeFormat(std::int32_t value) override { nativeFormat_ = value; }
  String PlayListName() override { return {}; }
  void SetPlayListName(const String& value) override;
  String SongTitle() override;
  void SetSongTitle(const String& value) override;
  String SourceURL() override { return sourceUrl_; }
  void SetSourceURL(const String& value) override;
  std::int32_t Urltype() override { return urlType_; }
  void SetUrltype(std::int32_t value) override { urlType_ = value; }
  String TrackNumber() override { return trackNumber_; }
  void SetTrackNumber(const String& value) override { trackNumber_ = value; }
  String DestinationPath() override;
  bool GetID3TagInfo() override;

  /// Sets the source address together with what a look-up has just told of the file, so that the
  /// disk is not asked twice. Same effect as `SetSourceURL`.
  void SetSource(const String& address, const std::optional<FileFacts>& facts);

  /// Raised when memory runs out; no operation of the class does so itself.
  Event& OutOfMemory() { return outOfMemory_; }

  // What no property hands out.
  const String& StoredPlayListName() const { return playListName_; }
  std::optional<FileTime> FileCreationDate() const { return fileCreationDate_; }

  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

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
  Event outOfMemory_;
};

}  // namespace norvo
