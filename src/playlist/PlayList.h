#pragma once

#include "automation/MemberTable.h"
#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// One playlist of one media player.
class PlayList final : public TableObject {
 public:
  explicit PlayList(Component& component) : component_(component) {}

  /// Reads the native playlist at the full path by the reader of `PlayListType`, which is set
  /// first; entries are appended to those that are there. False when the file is missing or its
  /// reader failed. An unknown type reads nothing and gives true. Raises what the file
  /// system raises between finding the file and opening it.
  bool ReadPlayList(const String& path);

  /// Writes the generic file of the playlist; see writers/GenericWriter.h.
  bool WriteGeneric(const String& fileName);

  /// The same collection every time.
  std::shared_ptr<Entries> PlayListEntries() { return record_.entries; }

  /// Writes the playlist as native files of all players; see writers/NativeWriter.h.
  bool WriteRawPlayList();

  /// Fills the playlist from a generic file; see readers/GenericReader.h.
  bool ReadGeneric(const String& fileName);

  /// Path of a new native playlist; see writers/NativeNaming.h.
  String GetNewPlayListPath(const String& fileName, std::int32_t type);

  Variant CreationTime() { return record_.creationTime; }
  void SetCreationTime(const Variant& value) { record_.creationTime = ToText(value); }
  Variant PlayListName() { return record_.name; }
  /// Keeps what precedes the type's extension; see `PlaylistRecord::SetName`.
  void SetPlayListName(const Variant& value);
  std::int32_t PlayListType() { return record_.type; }
  void SetPlayListType(std::int32_t value) { record_.type = value; }
  String OriginalFileName() { return record_.originalFileName; }
  /// Sets the name only while it is empty: intended.
  void SetOriginalFileName(const String& value);
  /// Number of entries, as a 16-bit value, whatever was set.
  Variant TotalSongs() { return record_.entries->Count(); }
  void SetTotalSongs(const Variant& value) { record_.totalSongsStore = value; }

  String AllowShuffle() { return record_.asxAllowShuffle; }
  void SetAllowShuffle(const String& value) { record_.asxAllowShuffle = value; }
  String Artist() { return record_.asxArtist; }
  void SetArtist(const String& value) { record_.asxArtist = value; }
  String Album() { return record_.asxAlbum; }
  void SetAlbum(const String& value) { record_.asxAlbum = value; }
  String Author() { return record_.asxAuthor; }
  void SetAuthor(const String& value) { record_.asxAuthor = value; }
  String Title() { return record_.asxTitle; }
  void SetTitle(const String& value) { record_.asxTitle = value; }
  String Version() { return record_.asxVersion; }
  void SetVersion(const String& value) { record_.asxVersion = value; }
  String PlayListAttribute() { return record_.asxPlayListAttribute; }
  void SetPlayListAttribute(const String& value) { record_.asxPlayListAttribute = value; }

  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  void KeepRegistrations();

  Component& component_;
  PlaylistRecord record_;
};

}  // namespace norvo
