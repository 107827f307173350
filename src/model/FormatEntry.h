#pragma once

#include <vector>

#include "model/Entry.h"

namespace norvo {

/// What the three format entries share: one inner `Entry`, to which the whole field set is
/// forwarded, and the mark that extended information was found.
class FormatEntry : public TableObject, public EntryInterface {
 public:
  explicit FormatEntry(Component& component) : inner_(component) {}

  String AlbumName() override { return inner_.AlbumName(); }
  void SetAlbumName(const String& value) override { inner_.SetAlbumName(value); }
  String ArtistName() override { return inner_.ArtistName(); }
  void SetArtistName(const String& value) override { inner_.SetArtistName(value); }
  String SongName() override { return inner_.SongName(); }
  void SetSongName(const String& value) override { inner_.SetSongName(value); }
  String CreationDate() override { return inner_.CreationDate(); }
  void SetCreationDate(const String& value) override { inner_.SetCreationDate(value); }
  Variant Duration() override { return inner_.Duration(); }
  void SetDuration(const Variant& value) override { inner_.SetDuration(value); }
  std::int32_t EntryType() override { return inner_.EntryType(); }
  void SetEntryType(std::int32_t value) override { inner_.SetEntryType(value); }
  String FileName() override { return inner_.FileName(); }
  void SetFileName(const String& value) override { inner_.SetFileName(value); }
  double FileSize() override { return inner_.FileSize(); }
  String Genre() override { return inner_.Genre(); }
  void SetGenre(const String& value) override { inner_.SetGenre(value); }
  std::int32_t NativeFormat() override { return inner_.NativeFormat(); }
  void SetNativeFormat(std::int32_t value) override { inner_.SetNativeFormat(value); }
  String PlayListName() override { return inner_.PlayListName(); }
  void SetPlayListName(const String& value) override { inner_.SetPlayListName(value); }
  String SongTitle() override { return inner_.SongTitle(); }
  void SetSongTitle(const String& value) override { inner_.SetSongTitle(value); }
  String SourceURL() override { return inner_.SourceURL(); }
  void SetSourceURL(const String& value) override { inner_.SetSourceURL(value); }
  std::int32_t Urltype() override { return inner_.Urltype(); }
  void SetUrltype(std::int32_t value) override { inner_.SetUrltype(value); }
  String TrackNumber() override { return inner_.TrackNumber(); }
  void SetTrackNumber(const String& value) override { inner_.SetTrackNumber(value); }
  String DestinationPath() override { return inner_.DestinationPath(); }
  bool GetID3TagInfo() override { return inner_.GetID3TagInfo(); }

  bool HasExtendedInfo() { return hasExtendedInfo_; }
  void SetHasExtendedInfo(bool value) { hasExtendedInfo_ = value; }

  /// See `Entry::SetSource`.
  void SetSource(const String& address, const std::optional<FileFacts>& facts) {
    inner_.SetSource(address, facts);
  }
  Entry& Inner() { return inner_; }

 protected:
  /// The public members that all three classes have, in interface order.
  static std::vector<Member> SharedMembers();

 private:
  Entry inner_;
  bool hasExtendedInfo_ = false;
};

/// An item of an M3U playlist.
class M3UEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }
};

/// An item of a PLS playlist.
class PlsEntry final : public FormatEntry {
 public:
  using FormatEntry::FormatEntry;
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }
};

}  // namespace norvo
