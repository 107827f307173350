#pragma once

#include "automation/MemberTable.h"
#include "model/PlaylistRecord.h"
#include "services/Component.h"

namespace norvo {

/// One playlist of one media player.
class PlayList final : public TableObject {
 public:
  /// A playlist without a type, a name and entries. The component must outlive it.
  explicit PlayList(Component& component) : component_(component) {}

  /// Reads the native playlist at the full path by the reader of `PlayListType`, which is set
  /// first; entries are appended to those that are there. False when the file is missing or its
  /// reader failed, or the file is larger than `kLargestPlaylist`. An unknown type reads nothing
  /// and gives true. Raises what the file system raises between finding the file and opening it.
  /// References that are not found, or that cannot be registered on a machine without the product's
  /// settings, become no entries; the observer hears of each.
  bool ReadPlayList(const String& path);

  /// Writes the generic file of the playlist into the data area, named after the playlist. One
  /// without a name takes what precedes ".m3u" in `fileName`, and keeps it. False, without a word
  /// in the log, for a playlist without entries and after any error.
  bool WriteGeneric(const String& fileName);

  /// The entries; the same collection every time.
  std::shared_ptr<Entries> PlayListEntries() { return record_.entries; }

  /// Writes the playlist as new native files of all players, whatever its own type; none for one of
  /// an unknown type. Always false, also after an error, which ends the files of the extension that
  /// was being written: intended.
  bool WriteRawPlayList();

  /// Fills the playlist from the generic file at the full path; entries are appended to those that
  /// are there. Always false, also after a complete read; what was read before an error stays.
  /// Intended.
  bool ReadGeneric(const String& fileName);

  /// Path of a new native playlist of that name and type, below the destination root: no file of
  /// that name exists yet. Creates the folder. Empty without a destination root; error 5 for a name
  /// without a point.
  String GetNewPlayListPath(const String& fileName, std::int32_t type);

  /// @{
  /// When the file was created, as text.
  Variant CreationTime() { return record_.creationTime; }
  void SetCreationTime(const Variant& value) { record_.creationTime = ToText(value); }
  /// @}
  /// The playlist's name, without its extension; see `SetPlayListName`.
  Variant PlayListName() { return record_.name; }
  /// Keeps what precedes the type's extension; see `PlaylistRecord::SetName`.
  void SetPlayListName(const Variant& value);
  /// @{
  /// One of playlist_type; 0 at first. Any other value is an unknown type.
  std::int32_t PlayListType() { return record_.type; }
  void SetPlayListType(std::int32_t value) { record_.type = value; }
  /// @}
  /// Name of the file that was read, with its extension, without its folder.
  String OriginalFileName() { return record_.originalFileName; }
  /// Sets the name only while it is empty: intended.
  void SetOriginalFileName(const String& value);
  /// @{
  /// Number of entries, as a 16-bit value, whatever was set.
  Variant TotalSongs() { return record_.entries->Count(); }
  void SetTotalSongs(const Variant& value) { record_.totalSongsStore = value; }
  /// @}

  /// @{
  /// What an ASX playlist tells of itself, as texts; empty of other ones.
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
  /// @}

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  bool CanBeHeld(const FileFacts& facts, StringView path);
  void KeepRegistrations();

  Component& component_;
  PlaylistRecord record_;
};

}  // namespace norvo
