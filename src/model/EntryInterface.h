#pragma once

#include <cstdint>

#include "automation/Variant.h"
#include "text/Text.h"

namespace norvo {

/// The field set of one playlist item. `Entry` holds it; the format entries offer it too, so that
/// each can be used wherever an `Entry` is expected.
class EntryInterface {
 public:
  virtual ~EntryInterface() = default;

  // Read back cut at the first NUL and trimmed; stored as given.
  virtual String AlbumName() = 0;
  virtual void SetAlbumName(const String& value) = 0;
  virtual String ArtistName() = 0;
  virtual void SetArtistName(const String& value) = 0;
  virtual String SongName() = 0;
  virtual void SetSongName(const String& value) = 0;

  virtual String CreationDate() = 0;
  virtual void SetCreationDate(const String& value) = 0;

  /// Any value, kept as text: seconds, or whatever the reader stored.
  virtual Variant Duration() = 0;
  virtual void SetDuration(const Variant& value) = 0;

  /// Type code of the playlist that the entry came from.
  virtual std::int32_t EntryType() = 0;
  virtual void SetEntryType(std::int32_t value) = 0;

  /// The empty text and a log line while no source address is set.
  virtual String FileName() = 0;
  virtual void SetFileName(const String& value) = 0;
  /// Bytes; 0 and a log line while no source address is set.
  virtual double FileSize() = 0;

  virtual String Genre() = 0;
  virtual void SetGenre(const String& value) = 0;
  virtual std::int32_t NativeFormat() = 0;
  virtual void SetNativeFormat(std::int32_t value) = 0;

  /// Always empty, whatever was set: intended. The playlist itself knows its name.
  virtual String PlayListName() = 0;
  /// Stores the name without the extension that belongs to the entry type; a name that has a point
  /// but not that extension is not stored.
  virtual void SetPlayListName(const String& value) = 0;

  /// Without a stored title, the first call composes "artist - song" and still answers with the
  /// empty text; later calls hand it out. Intended.
  virtual String SongTitle() = 0;
  /// Only the first title that is not empty is kept.
  virtual void SetSongTitle(const String& value) = 0;

  virtual String SourceURL() = 0;
  /// Also reads the file's name, size and creation date when the address type is 0 or 1 and the
  /// file exists.
  virtual void SetSourceURL(const String& value) = 0;

  /// Address type, 0 to 10.
  virtual std::int32_t Urltype() = 0;
  virtual void SetUrltype(std::int32_t value) = 0;
  virtual String TrackNumber() = 0;
  virtual void SetTrackNumber(const String& value) = 0;

  /// Path under which the media file is to be placed; the source address itself for the types 6 to
  /// 9. Empty, with a log line, without a file name.
  virtual String DestinationPath() = 0;
  /// Completes the fields from the file's audio tag; true when a tag was consulted.
  virtual bool GetID3TagInfo() = 0;
};

}  // namespace norvo
